#include "Links.h"

#include <cctype>
#include <fstream>
#include <map>
#include <set>

namespace docs {

namespace fs = std::filesystem;

namespace {

// A page without its blocks of code: what its headings are called and what it links to.
struct Outline {
  std::set<std::string> anchors;
  std::vector<std::string> links;
};

// A link may be broken over two lines: `text` is the whole page.
void AddLinks(const std::string& text, Outline& outline) {
  for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
    const std::size_t end = text.find(')', at);
    if (end == std::string::npos) return;
    outline.links.push_back(text.substr(at + 2, end - at - 2));
  }
}

Outline OutlineOf(const fs::path& page) {
  Outline outline;
  std::ifstream file(page);
  std::string text;
  bool code = false;
  for (std::string line; std::getline(file, line);) {
    if (line.compare(0, 3, "```") == 0) code = !code;
    if (code || line.compare(0, 4, "    ") == 0) continue;
    if (line[0] == '#') outline.anchors.insert(AnchorOf(line.substr(line.find(' ') + 1)));
    text += line + '\n';
  }
  AddLinks(text, outline);
  return outline;
}

}  // namespace

std::string AnchorOf(const std::string& heading) {
  std::string anchor;
  for (const char c : heading) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || c == '_' || c == '-') anchor += static_cast<char>(std::tolower(byte));
    if (c == ' ') anchor += '-';
  }
  return anchor;
}

std::vector<std::string> BrokenLinks(const std::vector<fs::path>& pages) {
  std::map<fs::path, Outline> outlines;
  for (const fs::path& page : pages) outlines[fs::weakly_canonical(page)] = OutlineOf(page);
  std::vector<std::string> broken;
  for (const auto& [page, outline] : outlines) {
    for (const std::string& link : outline.links) {
      if (link.find("://") != std::string::npos) continue;
      const std::size_t hash = link.find('#');
      const std::string name = link.substr(0, hash);
      const fs::path target = name.empty() ? page : fs::weakly_canonical(page.parent_path() / name);
      const auto other = outlines.find(target);
      const bool found =
          hash == std::string::npos
              ? fs::exists(target)
              : other != outlines.end() && other->second.anchors.count(link.substr(hash + 1)) != 0;
      if (!found) broken.push_back(page.filename().string() + ": " + link);
    }
  }
  return broken;
}

}  // namespace docs
