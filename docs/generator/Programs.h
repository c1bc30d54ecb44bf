// The program on each document's page, which reads the page's example in the C++ interface, and
// what it prints.
#ifndef ZTXML_DOCS_GENERATOR_PROGRAMS_H
#define ZTXML_DOCS_GENERATOR_PROGRAMS_H

#include <string>

#include "reflect/Reflect.h"

namespace docs {

/// A program that prints the first value of the document's root and walks the first list in it, as
/// far as `text`, the document in `file`, has them; then what it prints. Empty when there is none.
std::string Program(const reflect::Schema& schema, const std::string& file,
                    const std::string& text);

}  // namespace docs

#endif  // ZTXML_DOCS_GENERATOR_PROGRAMS_H
