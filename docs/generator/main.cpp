// Brings the generated parts of the documents' pages and of the page of quirks up to date, or tells
// which are not; then checks the links of all pages.
//
// Usage: doc_pages [--check] ROOT_OF_THE_PROJECT
//
// A page is written by hand. The parts between "<!-- generated: WHAT -->" and
// "<!-- generated: end -->" come from the library's tables and sources:
//   facts           of the page's document as a whole
//   elements        its types
//   program FILE    a program that reads a document of examples/documents, and what it prints
//   example FILE    a document of examples/documents and what the library writes of it
//   types SOURCE... types that several documents have, by the source files of their families
//   documents       the table of all documents
//   quirks          what the sources say of deliberate oddities
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "Links.h"
#include "Pages.h"
#include "Programs.h"
#include "Quirks.h"

namespace {

namespace fs = std::filesystem;

constexpr char kBegin[] = "<!-- generated: ";
constexpr char kEnd[] = "<!-- generated: end -->\n";

bool ReadText(const fs::path& path, std::string& text) {
  std::ifstream file(path, std::ios::binary);
  text.assign(std::istreambuf_iterator<char>(file), {});
  return static_cast<bool>(file);
}

struct Page {
  fs::path path;
  std::string text;
};

class Project {
 public:
  explicit Project(fs::path root) : m_Root(std::move(root)), m_Schemas(reflect::Schemas()) {}

  // False after a message.
  bool Load() {
    for (const auto& entry : fs::directory_iterator(m_Root / "docs/documents")) {
      if (entry.path().extension() == ".md" && !Add(entry.path())) return false;
    }
    if (!Add(m_Root / "README.md") || !Add(m_Root / "docs/quirks.md")) return false;
    std::map<std::string, std::string> shared;
    for (const Page& page : m_Pages) {
      const std::string name = page.path.filename();
      m_Titles[name] = LineAfter(page.text, "# ");
      m_Standards[name] = LineAfter(page.text, "Standard: ");
      std::istringstream sources(LineAfter(page.text, "<!-- generated: types "));
      for (std::string source; sources >> source;) shared[source] = name;
    }
    for (const reflect::Schema& schema : m_Schemas) {
      const std::string page = docs::PageOf(schema);
      if (m_Standards.count(page)) continue;
      std::cerr << "doc_pages: no page docs/documents/" << page << '\n';
      return false;
    }
    m_Homes = docs::FindHomes(m_Schemas, shared);
    m_Sources = docs::FindSourcePages(m_Schemas, shared);
    return true;
  }

  // Tells which links lead nowhere; their number.
  std::size_t CheckLinks() const {
    std::vector<fs::path> pages = {m_Root / "CONTRIBUTING.md"};
    for (const Page& page : m_Pages) pages.push_back(page.path);
    for (const auto& entry : fs::directory_iterator(m_Root / "docs")) {
      if (entry.path().extension() == ".md") pages.push_back(entry.path());
    }
    const std::vector<std::string> broken = docs::BrokenLinks(pages);
    for (const std::string& link : broken) std::cout << "leads nowhere: " << link << '\n';
    return broken.size();
  }

  // Writes the pages that are out of date, or only tells of them. The number of those, -1 after a
  // message.
  int Update(bool check) {
    int outdated = 0;
    for (const Page& page : m_Pages) {
      std::string text;
      if (!Render(page, text)) return -1;
      if (text == page.text) continue;
      ++outdated;
      std::cout << (check ? "out of date: " : "written: ") << page.path.string() << '\n';
      if (!check && !(std::ofstream(page.path, std::ios::binary) << text)) {
        std::cerr << "doc_pages: cannot write it\n";
        return -1;
      }
    }
    return outdated;
  }

 private:
  bool Add(const fs::path& path) {
    m_Pages.push_back({path, ""});
    if (ReadText(path, m_Pages.back().text)) return true;
    std::cerr << "doc_pages: cannot read " << path.string() << '\n';
    return false;
  }

  // The rest of the first line that begins with `lead`.
  static std::string LineAfter(const std::string& text, const std::string& lead) {
    const std::size_t at = ("\n" + text).find("\n" + lead);
    if (at == std::string::npos) return "";
    const std::size_t from = at + lead.size();
    return text.substr(from, text.find('\n', from) - from);
  }

  bool Render(const Page& page, std::string& out) {
    std::size_t done = 0;
    for (;;) {
      const std::size_t begin = page.text.find(kBegin, done);
      if (begin == std::string::npos) break;
      const std::size_t line = page.text.find('\n', begin);
      const std::size_t end = page.text.find(kEnd, begin);
      if (line == std::string::npos || end == std::string::npos || end < line) {
        std::cerr << "doc_pages: " << page.path.string() << ": a generated part has no end\n";
        return false;
      }
      out += page.text.substr(done, line + 1 - done) + "\n";
      const std::size_t what = begin + sizeof(kBegin) - 1;
      std::istringstream words(page.text.substr(what, page.text.find(" -->", what) - what));
      if (!Generate(page, words, out)) return false;
      out += std::string("\n") + kEnd;
      done = end + sizeof(kEnd) - 1;
    }
    out += page.text.substr(done);
    return true;
  }

  bool Generate(const Page& page, std::istringstream& words, std::string& out) {
    std::string what;
    std::string file;
    words >> what;
    const std::string name = page.path.filename();
    const auto schema =
        std::find_if(m_Schemas.begin(), m_Schemas.end(),
                     [&](const reflect::Schema& other) { return docs::PageOf(other) == name; });
    const bool ofSchema = schema != m_Schemas.end();
    std::string part;
    if (what == "documents") {
      const bool inFolder = page.path.parent_path().filename() == "documents";
      part = docs::Documents(m_Schemas, m_Standards, inFolder ? "" : "docs/documents/");
    } else if (what == "quirks") {
      part = docs::Quirks(m_Root, m_Sources, m_Titles);
    } else if (what == "types") {
      part = docs::SharedElements(m_Schemas, name, m_Homes);
    } else if (what == "facts" && ofSchema) {
      part = docs::Facts(*schema);
    } else if (what == "elements" && ofSchema) {
      part = docs::Elements(*schema, name, m_Homes);
    } else if ((what == "example" || what == "program") && ofSchema && words >> file) {
      std::string text;
      if (ReadText(m_Root / "examples/documents" / file, text)) {
        part = what == "example" ? docs::Example(*schema, file, text)
                                 : docs::Program(*schema, file, text);
      }
    }
    if (part.empty()) {
      std::cerr << "doc_pages: " << page.path.string() << ": cannot make '" << what << ' ' << file
                << "'\n";
      return false;
    }
    while (part.size() > 1 && part[part.size() - 2] == '\n') part.pop_back();
    out += part;
    return true;
  }

  fs::path m_Root;
  std::vector<reflect::Schema> m_Schemas;
  std::vector<Page> m_Pages;
  std::map<std::string, std::string> m_Titles;
  std::map<std::string, std::string> m_Standards;
  docs::Homes m_Homes;
  docs::SourcePages m_Sources;
};

}  // namespace

int main(int argc, char** argv) {
  const bool check = argc == 3 && std::string(argv[1]) == "--check";
  if (argc != 2 && !check) {
    std::cerr << "usage: doc_pages [--check] ROOT_OF_THE_PROJECT\n";
    return 2;
  }
  Project project(argv[argc - 1]);
  if (!project.Load()) return 1;
  const int outdated = project.Update(check);
  if (outdated < 0 || (check && outdated > 0)) return 1;
  return project.CheckLinks() == 0 ? 0 : 1;
}
