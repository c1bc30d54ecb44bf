// The deliberate oddities that the sources tell of, as Markdown.
#ifndef ZTXML_DOCS_GENERATOR_QUIRKS_H
#define ZTXML_DOCS_GENERATOR_QUIRKS_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "reflect/Reflect.h"

namespace docs {

/// The page that a source file belongs to: file names of pages, by file without its ending
/// ("src/XMLReginfo"), as the library's tables name it.
using SourcePages = std::map<std::string, std::string>;

/// `shared` are the pages of types that several schemas have, by the source file of the types'
/// family.
SourcePages FindSourcePages(const std::vector<reflect::Schema>& schemas,
                            const std::map<std::string, std::string>& shared);

/// All sentences after "Intended:" in comments of src and include below `root`, under a heading for
/// each area of the library and each page. `titles` has the titles of the pages. "" after a message
/// when a comment cannot be listed or its file belongs to no heading.
std::string Quirks(const std::filesystem::path& root, const SourcePages& pages,
                   const std::map<std::string, std::string>& titles);

}  // namespace docs

#endif  // ZTXML_DOCS_GENERATOR_QUIRKS_H
