#include "Quirks.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>

#include "Pages.h"

namespace docs {

namespace fs = std::filesystem;

namespace {

constexpr char kMark[] = "Intended:";
constexpr std::size_t kMarkSize = sizeof(kMark) - 1;

// The headings for quirks of no document, in the order of the page, with their files, given without
// endings; a star at the end means all files that begin like it.
struct Area {
  const char* heading;
  std::vector<std::string> files;
};
const std::vector<Area>& Areas() {
  static const std::vector<Area> areas = {
      {"Parser", {"XmlDecoder*", "TagScanner", "XmlCommon"}},
      {"Document writer", {"ztXMLDocGenerator"}},
      {"Reading and writing all documents",
       {"XMLFactory", "XMLSchemaInfo", "XMLContext", "XMLValueTypes", "XMLCommonDef",
        "XMLCommonNames", "Zt*"}},
      {"Containers", {"XMLList", "XMLStack"}},
      {"Files", {"XMLFile"}},
  };
  return areas;
}

bool Fits(const std::string& file, const std::string& pattern) {
  if (pattern.back() != '*') return file == pattern;
  return file.compare(0, pattern.size() - 1, pattern, 0, pattern.size() - 1) == 0;
}

// The page of a file without folder and ending, "" for none. Tables that several sources include
// are called after one of them: CommonPolicyBinding.h belongs to XMLCommonPolicy.
std::string PageOfFile(const std::string& file, const SourcePages& pages) {
  const std::string suffix = "Binding";
  std::vector<std::string> names = {file};
  const std::size_t size = file.size() - std::min(file.size(), suffix.size());
  if (file.substr(size) == suffix) names.push_back("XML" + file.substr(0, size));
  for (const std::string& name : names) {
    const auto page = pages.find("src/" + name);
    if (page != pages.end()) return page->second;
  }
  return "";
}

// The text of a line that is nothing but a comment; false for others, and for what a comment tells
// the formatter.
bool CommentOf(const std::string& line, std::string& text) {
  const std::size_t at = line.find_first_not_of(' ');
  if (at == std::string::npos || line.compare(at, 2, "//") != 0) return false;
  const std::size_t from = line.find_first_not_of("/ ", at);
  text = from == std::string::npos ? "" : line.substr(from);
  return text.compare(0, 13, "clang-format ") != 0;
}

// A sentence as it stands on the page: what Markdown would take for markup is not, outside of code.
std::string Sentence(std::string text) {
  text.erase(0, text.find_first_not_of(' '));
  text.erase(text.find_last_not_of(' ') + 1);
  if (text.empty()) return text;
  text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  std::string out;
  bool code = false;
  for (const char c : text) {
    if (c == '`') code = !code;
    if (!code && (c == '<' || c == '*' || c == '[')) out += '\\';
    out += c;
  }
  return out.back() == '.' ? out : out + '.';
}

// Appends the sentences that a block of comments holds.
void AddSentences(const std::string& block, std::vector<std::string>& sentences) {
  for (std::size_t at = block.find(kMark); at != std::string::npos;) {
    const std::size_t next = block.find(kMark, at + kMarkSize);
    const std::size_t end = next == std::string::npos ? block.size() : next;
    sentences.push_back(Sentence(block.substr(at + kMarkSize, end - at - kMarkSize)));
    at = next;
  }
}

// The sentences of a file, in their order. False after a message.
bool ReadSentences(const fs::path& path, std::vector<std::string>& sentences) {
  std::ifstream file(path);
  std::string block;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    std::string text;
    if (CommentOf(line, text)) {
      block += text + ' ';
      continue;
    }
    AddSentences(block, sentences);
    block.clear();
    if (line.find(kMark) == std::string::npos) continue;
    std::cerr << "doc_pages: " << path.string() << ':' << number << ": '" << kMark
              << "' stands after code; give it a line of its own\n";
    return false;
  }
  AddSentences(block, sentences);
  const bool empty = std::find(sentences.begin(), sentences.end(), "") != sentences.end();
  if (empty) std::cerr << "doc_pages: " << path.string() << ": nothing follows '" << kMark << "'\n";
  return !empty;
}

std::vector<fs::path> Sources(const fs::path& root) {
  std::vector<fs::path> sources;
  for (const char* folder : {"src", "include"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      if (entry.is_regular_file()) sources.push_back(fs::relative(entry.path(), root));
    }
  }
  std::sort(sources.begin(), sources.end());
  return sources;
}

}  // namespace

SourcePages FindSourcePages(const std::vector<reflect::Schema>& schemas,
                            const std::map<std::string, std::string>& shared) {
  SourcePages pages = shared;
  for (const reflect::Schema& schema : schemas) {
    pages.emplace(schema.document->source, PageOf(schema));
    pages.emplace(schema.document->decoderSource, PageOf(schema));
  }
  for (const reflect::Schema& schema : schemas) {
    for (const ZtElementType* type : schema.Types()) {
      pages.emplace(type->family->source, PageOf(schema));
    }
  }
  return pages;
}

std::string Quirks(const fs::path& root, const SourcePages& pages,
                   const std::map<std::string, std::string>& titles) {
  std::map<std::string, std::string> areas;
  std::map<std::string, std::string> documents;
  for (const fs::path& source : Sources(root)) {
    std::vector<std::string> sentences;
    if (!ReadSentences(root / source, sentences)) return "";
    if (sentences.empty()) continue;
    const std::string file = source.stem().string();
    std::string* list = nullptr;
    for (const Area& area : Areas()) {
      for (const std::string& pattern : area.files) {
        if (Fits(file, pattern)) list = &areas[area.heading];
      }
    }
    if (!list) {
      const std::string page = PageOfFile(file, pages);
      const auto title = titles.find(page);
      if (title == titles.end()) {
        std::cerr << "doc_pages: " << source.string() << ": no area and no page has its quirks\n";
        return "";
      }
      list = &documents["[" + title->second + "](documents/" + page + ")"];
    }
    const std::string path = source.generic_string();
    for (const std::string& sentence : sentences) {
      list->append("- ").append(sentence);
      list->append(" ([").append(path).append("](../").append(path).append("))\n");
    }
  }
  std::string text;
  const auto add = [&text](const std::string& heading, const std::string& list) {
    if (!list.empty()) text += "## " + heading + "\n\n" + list + "\n";
  };
  for (const Area& area : Areas()) add(area.heading, areas[area.heading]);
  for (const auto& [heading, list] : documents) add(heading, list);
  return text;
}

}  // namespace docs
