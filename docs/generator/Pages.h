// The generated parts of the documents' pages, as Markdown.
#ifndef ZTXML_DOCS_GENERATOR_PAGES_H
#define ZTXML_DOCS_GENERATOR_PAGES_H

#include <map>
#include <string>
#include <vector>

#include "reflect/Reflect.h"

namespace docs {

/// Where each type is described: file names of pages, by the class's name.
using Homes = std::map<std::string, std::string>;

/// The name of a schema's page, e.g. "communication-diversion.md".
std::string PageOf(const reflect::Schema& schema);

/// The page that describes each type. `shared` are the pages of types that several schemas have, by
/// the source file of the types' family; every other type is on the page of the first schema that
/// has it, or of the one that it is made for.
Homes FindHomes(const std::vector<reflect::Schema>& schemas,
                const std::map<std::string, std::string>& shared);

/// What there is to know of a schema as a whole.
std::string Facts(const reflect::Schema& schema);

/// The types of a schema that are described on `page`, then what it writes in its own way.
std::string Elements(const reflect::Schema& schema, const std::string& page, const Homes& homes);

/// The types that several schemas have and that `page` describes.
std::string SharedElements(const std::vector<reflect::Schema>& schemas, const std::string& page,
                           const Homes& homes);

/// The table of all documents. `standards` has the standard of each page, `folder` where the pages
/// are.
std::string Documents(const std::vector<reflect::Schema>& schemas,
                      const std::map<std::string, std::string>& standards,
                      const std::string& folder);

/// A document and what the library writes of it.
std::string Example(const reflect::Schema& schema, const std::string& file,
                    const std::string& text);

}  // namespace docs

#endif  // ZTXML_DOCS_GENERATOR_PAGES_H
