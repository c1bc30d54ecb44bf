// Links between Markdown pages.
#ifndef ZTXML_DOCS_GENERATOR_LINKS_H
#define ZTXML_DOCS_GENERATOR_LINKS_H

#include <filesystem>
#include <string>
#include <vector>

namespace docs {

/// The anchor that Markdown makes of a heading.
std::string AnchorOf(const std::string& heading);

/// The links of `pages` to files that are not there, and to headings that a page does not have,
/// each as "PAGE: LINK". Links to other machines are not looked at.
std::vector<std::string> BrokenLinks(const std::vector<std::filesystem::path>& pages);

}  // namespace docs

#endif  // ZTXML_DOCS_GENERATOR_LINKS_H
