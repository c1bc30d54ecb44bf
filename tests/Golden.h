// Golden files: texts below tests/golden that say what callers see of the library. A test computes
// each of them anew and compares; `scripts/golden --update` writes them instead.
#ifndef ZTXML_TESTS_GOLDEN_H
#define ZTXML_TESTS_GOLDEN_H

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "DocumentSupport.h"
#include "reflect/Reflect.h"

using Lines = std::vector<std::string>;

inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

/// The files of one folder of tests/golden, all of which one test computes. When it is done, a file
/// that was not expected is a failure, or deleted by an update.
class GoldenFolder {
 public:
  explicit GoldenFolder(const char* name)
      : m_Path(std::filesystem::path(ZTXML_GOLDEN_DIR) / name) {}
  GoldenFolder(const GoldenFolder&) = delete;
  GoldenFolder& operator=(const GoldenFolder&) = delete;
  ~GoldenFolder() {
    std::error_code none;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_Path, none)) {
      if (entry.path().extension() != ".txt" || m_Expected.count(entry.path())) continue;
      if (Updates()) {
        std::filesystem::remove(entry.path());
      } else {
        ADD_FAILURE() << entry.path() << " is of no case any more" << kHow;
      }
    }
  }

  const std::filesystem::path& Path() const { return m_Path; }

  /// Compares `text` with the file `name`, or writes it there.
  void Expect(const std::string& name, const std::string& text) {
    const std::filesystem::path path = m_Path / name;
    m_Expected.insert(path);
    const bool exists = std::filesystem::exists(path);
    if (!Updates()) {
      EXPECT_SAME(text, exists ? ReadFile(path) : "(no such file)") << path << kHow;
    } else if (!exists || ReadFile(path) != text) {
      std::filesystem::create_directories(path.parent_path());
      std::ofstream(path, std::ios::binary) << text;
    }
  }

 private:
  static constexpr char kHow[] =
      "\n(If it is meant to be so: scripts/golden --update, and read the difference.)";
  static bool Updates() { return std::getenv("ZTXML_GOLDEN_UPDATE") != nullptr; }

  const std::filesystem::path m_Path;
  std::set<std::filesystem::path> m_Expected;
};

/// The documents of a schema that are written by hand and have everything.
inline std::set<std::filesystem::path> FullDocuments(const XMLSchemaInfo& info) {
  std::set<std::filesystem::path> full;
  for (const auto& entry : std::filesystem::directory_iterator(
           std::filesystem::path(ZTXML_GOLDEN_DIR) / "documents" / info.name)) {
    const std::string name = entry.path().filename();
    if (name.find("full") == 0 && entry.path().extension() == ".xml") full.insert(entry.path());
  }
  return full;
}

// ---- Texts --------------------------------------------------------------------------------------

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; !from.empty() && (at = text.find(from, at)) != std::string::npos;) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
  return text;
}

inline std::string Quoted(const std::string& text) {
  return '"' + Replaced(Replaced(text, "\\", "\\\\"), "\n", "\\n") + '"';
}

inline Lines LinesOf(const std::string& text) {
  Lines lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

/// The lines of the log: level, module, file, text. Lines of the parser and the containers are left
/// out, and a whole document in a line is replaced by a word.
inline Lines Told(const LogCapture& log, const std::string& input = "",
                  const std::string& output = "") {
  Lines lines;
  for (const CapturedLine& line : log.Lines()) {
    if (line.file == "src/XMLList" || line.file == "src/XmlDecoder" ||
        line.file == "src/XMLStack") {
      continue;
    }
    std::string text =
        Replaced(Replaced(line.text, output, "(what is written)"), input, "(what is read)");
    if (text.size() > 300) {  // a part of a document
      text = text.substr(0, 120) + " ... (" + std::to_string(text.size()) + " bytes)";
    }
    text = Replaced(Replaced(text, "\\", "\\\\"), "\n", "\\n");
    lines.push_back(std::to_string(line.level) + ' ' + std::to_string(line.module) + ' ' +
                    line.file + ' ' + text);
  }
  return lines;
}

inline std::string Joined(const Lines& lines, const std::string& indent = "") {
  std::string text;
  for (const std::string& line : lines) text += indent + line + '\n';
  return text;
}

// ---- Differences --------------------------------------------------------------------------------

/// The lines that only one of two texts has: "- " before those of `a`, "+ " before those of `b`.
inline Lines Difference(const Lines& a, const Lines& b) {
  std::size_t begin = 0, same = 0;
  while (begin < a.size() && begin < b.size() && a[begin] == b[begin]) ++begin;
  while (same < a.size() - begin && same < b.size() - begin &&
         a[a.size() - 1 - same] == b[b.size() - 1 - same]) {
    ++same;
  }
  const std::size_t rows = a.size() - same - begin, columns = b.size() - same - begin;
  // The longest lines in common of what begins at a row and a column.
  std::vector<std::vector<int>> common(rows + 1, std::vector<int>(columns + 1));
  for (std::size_t i = rows; i-- > 0;) {
    for (std::size_t j = columns; j-- > 0;) {
      common[i][j] = a[begin + i] == b[begin + j] ? 1 + common[i + 1][j + 1]
                                                  : std::max(common[i + 1][j], common[i][j + 1]);
    }
  }
  Lines difference;
  for (std::size_t i = 0, j = 0; i < rows || j < columns;) {
    if (i < rows && j < columns && a[begin + i] == b[begin + j]) {
      ++i, ++j;
    } else if (j == columns || (i < rows && common[i + 1][j] >= common[i][j + 1])) {
      difference.push_back("- " + a[begin + i++]);
    } else {
      difference.push_back("+ " + b[begin + j++]);
    }
  }
  return difference;
}

/// What differs in two lines, in whole words, after their common beginning.
inline std::string Changed(const std::string& a, const std::string& b) {
  constexpr char kBounds[] = " \"<>/";
  const auto bound = [&](char c) { return std::strchr(kBounds, c) != nullptr; };
  std::size_t begin = 0, same = 0;
  while (begin < a.size() && begin < b.size() && a[begin] == b[begin]) ++begin;
  while (begin && !bound(a[begin - 1])) --begin;
  while (same < a.size() - begin && same < b.size() - begin &&
         a[a.size() - 1 - same] == b[b.size() - 1 - same]) {
    ++same;
  }
  while (same && same < a.size() && !bound(a[a.size() - same]) && !bound(a[a.size() - same - 1]))
    --same;
  return a.substr(0, std::min<std::size_t>(begin, 30)) + (begin > 30 ? " ... " : "") + "[" +
         a.substr(begin, a.size() - same - begin) + "] became [" +
         b.substr(begin, b.size() - same - begin) + "]";
}

/// A difference in few lines: a line that only changed is told in one line, and of many missing
/// lines in a row the first `most` are.
inline std::string Short(const std::string& label, const Lines& difference, std::size_t most) {
  std::string text;
  for (std::size_t at = 0; at < difference.size();) {
    std::size_t end = at;
    while (end < difference.size() && difference[end][0] == '-') ++end;
    const std::size_t missing = end - at;
    const bool added = end < difference.size();
    const bool pair =
        missing == 1 && added && (end + 1 == difference.size() || difference[end + 1][0] == '-');
    if (pair && difference[at][2] == difference[end][2]) {
      text += label + Changed(difference[at].substr(2), difference[end].substr(2)) + '\n';
      at = end + 1;
      continue;
    }
    const std::size_t shown = missing <= 3 ? missing : most;
    for (std::size_t i = 0; i < shown; ++i) text += label + difference[at + i] + '\n';
    if (missing > shown) text += label + "- (" + std::to_string(missing - shown) + " lines)\n";
    if (added) text += label + difference[end] + '\n';
    at = end + (added ? 1 : 0);
  }
  return text;
}

// ---- Objects ------------------------------------------------------------------------------------

/// A field by the name that documents have for it, attributes with "@".
inline std::string NameOf(const reflect::Field& field) {
  switch (field.place) {
    case ZtPlace::kOwnText:
      return "(text)";
    case ZtPlace::kOwnWords:
      return "(words)";
    case ZtPlace::kOtherChildren:
      return "(other elements)";
    case ZtPlace::kOtherAttributes:
      return "(other attributes)";
    default:
      return (reflect::IsAttribute(field) ? "@" : "") + std::string(field.name);
  }
}

/// What is in a field, objects by their classes: texts in quotes, enumerations with their index.
inline Lines ValuesOf(const reflect::Field& field) {
  Lines values;
  for (const reflect::Item& item : field.items) {
    std::string value;
    if (item.object) {
      const char* className = item.object->ClassName();
      value = className ? className : "(one that has no class name)";
    } else if (field.HoldsAttributes()) {
      value = std::string(item.name ? item.name : "(default)") + " = " +
              (item.text ? Quoted(item.text) : "(null)");
    } else if (field.value == ZtValue::kText) {
      value = Quoted(item.text);
    } else {
      value = std::to_string(field.number) + (item.text ? " " + std::string(item.text) : "");
    }
    values.push_back(value);
  }
  return values;
}

/// All fields of an object, one line each, without the contents of its children.
inline Lines FieldsOf(const XMLElement& object) {
  Lines lines;
  for (const reflect::Field& field : reflect::FieldsOf(object)) {
    std::string line;
    for (const std::string& value : ValuesOf(field)) line += (line.empty() ? "" : ", ") + value;
    const bool number = field.value != ZtValue::kObject && field.value != ZtValue::kText;
    if (line.empty()) line = number ? std::to_string(field.number) + " (absent)" : "(absent)";
    lines.push_back(NameOf(field) + " = " + line);
  }
  return lines;
}

/// The fields in which `now` differs from `before`.
inline Lines Changes(const Lines& before, const Lines& now) {
  Lines changes;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != before[i]) changes.push_back(now[i]);
  }
  return changes;
}

/// A tree, one line for each object and each value that it has.
class TreeTeller : public reflect::Visitor {
 public:
  static Lines Tell(const XMLElement& root) {
    TreeTeller teller;
    reflect::Walk(root, teller);
    return teller.m_Lines;
  }

  bool Enter(const XMLElement& object, const char* name, const reflect::Field* in) override {
    const bool other = in && in->place == ZtPlace::kOtherChildren;
    Line(name + (" : " + std::string(object.ClassName())) + (other ? " (other element)" : ""));
    m_Indent += "  ";
    Nowhere(object);
    return true;
  }
  void Begin(const reflect::Field& field) override {
    if (!field.items.empty() && field.items[0].object) return;
    const bool named = !field.HoldsAttributes();
    for (const std::string& value : ValuesOf(field)) {
      Line((named ? NameOf(field) + " = " : "other @") + value);
    }
  }
  void End(const reflect::Field& /*field*/) override {}
  void Leave(const XMLElement& /*object*/) override { m_Indent.resize(m_Indent.size() - 2); }

 private:
  // The enumerations with a number that is neither a value nor what a new object has.
  void Nowhere(const XMLElement& object) {
    const Tree<XMLElement> fresh(reflect::TypeOf(object).Create("tests/Golden"));
    const Lines before = ::FieldsOf(*fresh);
    const Lines now = ::FieldsOf(object);
    const std::vector<reflect::Field> fields = reflect::FieldsOf(object);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      const bool absent = fields[i].value == ZtValue::kEnum && !fields[i].IsPresent();
      if (absent && now[i] != before[i]) Line(now[i]);
    }
  }
  void Line(const std::string& text) { m_Lines.push_back(m_Indent + text); }

  std::string m_Indent;
  Lines m_Lines;
};

#endif  // ZTXML_TESTS_GOLDEN_H
