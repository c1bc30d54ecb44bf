#include "DiffPrint.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <sstream>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

#include "Colour.h"
#include "Json.h"
#include "Output.h"
#include "Position.h"
#include "Text.h"
#include "Tree.h"

using reflect::Field;
using reflect::Item;
using reflect::Node;

namespace {

const char* OrEmpty(const char* text) { return text ? text : ""; }

// How much is told of a value, and whether types are.
struct Detail {
  std::size_t most;  // bytes of a text
  bool types;
};

std::string ValueOf(const DiffItem& of, const Detail& detail) {
  if (!of.item.text) return std::to_string(of.field.number);
  return of.field.value == ZtValue::kEnum ? of.item.text : QuoteShort(of.item.text, detail.most);
}

// Two values as they are shown.
struct Values {
  std::string before;
  std::string after;
};

// Of long texts only the part where they begin to differ, after up to `context` bytes.
Values ValuesOf(const DiffItem& before, const DiffItem& after, std::size_t context,
                const Detail& detail) {
  const bool isEnum = before.field.value == ZtValue::kEnum;
  if (isEnum || !before.item.text || !after.item.text) {
    return {ValueOf(before, detail), ValueOf(after, detail)};
  }
  const std::string_view old = before.item.text;
  const std::string_view now = after.item.text;
  const auto same = static_cast<std::size_t>(
      std::mismatch(old.begin(), old.end(), now.begin(), now.end()).first - old.begin());
  std::size_t cut = same > 2 * context ? same - context : 0;
  while (cut && cut < same && (static_cast<unsigned char>(old[cut]) & 0xc0) == 0x80) ++cut;
  const char* mark = cut ? "..." : "";
  return {mark + QuoteShort(old.substr(cut), detail.most),
          mark + QuoteShort(now.substr(cut), detail.most)};
}

// The attribute that is the key, or none; `fields` are the object's.
const Field* KeyAmong(const std::vector<Field>& fields) {
  constexpr std::string_view kKeys[] = {"id", "entity", "uri", "aor", "name", "ref", "type", "cid"};
  const Field* key = nullptr;
  std::size_t best = std::size(kKeys);
  for (const Field& field : fields) {
    if (!reflect::IsAttribute(field) || !field.name || !field.IsPresent()) continue;
    for (std::size_t i = 0; i < best; ++i) {
      if (kKeys[i] != field.name) continue;
      best = i;
      key = &field;
    }
  }
  return key;
}

// What is at a path of one document: " = VALUE" or " : TYPE @KEY=VALUE".
std::string Summary(const DiffItem& of, const Detail& detail) {
  if (!of.item.object) return " = " + ValueOf(of, detail);
  std::string summary;
  if (detail.types) {
    summary = std::string(" : ") + reflect::TypeOf(*of.item.object).className;
  }
  const std::vector<Field> fields = reflect::FieldsOf(of.item.AsNode());
  const Field* const key = KeyAmong(fields);
  if (!key) return summary;
  const std::string name = key->name;
  return summary + " @" + name + '=' + ValueOf({*key, key->items[0], name}, detail);
}

// What an object holds, as lines.
std::string HeldBy(const DiffItem& of) {
  if (!of.item.object) return "";
  std::ostringstream held;
  PrintTree(of.item.AsNode(), reflect::NameOf(of.field, of.item), "", held, false);
  return held.str();
}

// ---- For programs -------------------------------------------------------------------------------

std::string JsonOf(const DiffItem& of) {
  if (!of.item.object) {
    return of.item.text ? JsonQuote(of.item.text) : std::to_string(of.field.number);
  }
  std::string json;
  AppendJson(of.item.AsNode(), reflect::NameOf(of.field, of.item), json);
  return json;
}

class JsonDiff : public DiffPrinter {
 public:
  void Only(char sign, const std::string& path, const DiffItem& item) override {
    const bool isOld = sign == '-';
    Print(isOld ? "removed" : "added", path, item, isOld ? &item : nullptr,
          isOld ? nullptr : &item);
  }
  void Changed(const std::string& path, const DiffItem& before, const DiffItem& after) override {
    Print("changed", path, before, &before, &after);
  }

 private:
  static void Print(const char* change, const std::string& path, const DiffItem& named,
                    const DiffItem* before, const DiffItem* after) {
    JsonObject line;
    line.Text("change", change).Text("path", path + '/' + named.name);
    if (before) line.Value("old", JsonOf(*before));
    if (after) line.Value("new", JsonOf(*after));
    Out() << line.Done() << '\n';
  }
};

// ---- For people ---------------------------------------------------------------------------------

// Prints differences, with as much of what is equal around them as was asked for.
class TextDiff : public DiffPrinter {
 public:
  explicit TextDiff(const Detail& detail) : m_Detail(detail) {}

  bool WantsSame() const override { return m_iContext; }
  void Enter() override { m_Levels.emplace_back(); }
  void Leave() override { m_Levels.pop_back(); }

  void Same(const std::string& path, const DiffItem& before, const DiffItem& after) override {
    Level& level = m_Levels.back();
    Row row = {path, before.name + Summary(before, m_Detail), ""};
    row.after = after.name + row.before.substr(before.name.size());
    if (level.after) {
      --level.after;
      Print(' ', row);
      return;
    }
    if (level.before.size() == m_iContext) level.before.pop_front();
    level.before.push_back(std::move(row));
  }
  void Only(char sign, const std::string& path, const DiffItem& item) override {
    PrintContext();
    const std::string line = item.name + Summary(item, m_Detail);
    Print(sign, {path, sign == '-' ? line : "", sign == '+' ? line : ""});
    const std::string held = HeldBy(item);
    std::string_view rest = held;
    while (!rest.empty()) {
      const std::size_t size = rest.find('\n');
      PrintHeld(sign, "    " + std::string(rest.substr(0, size)));
      rest.remove_prefix(size + 1);
    }
  }
  void Changed(const std::string& path, const DiffItem& before, const DiffItem& after) override {
    PrintContext();
    PrintChanged(path, before, after);
  }

 protected:
  // What stands in the two documents; "" for nothing.
  struct Row {
    std::string path;
    std::string before;
    std::string after;
  };

  virtual void Print(char sign, const Row& row) = 0;
  virtual void PrintHeld(char sign, const std::string& line) = 0;
  virtual void PrintChanged(const std::string& path, const DiffItem& before,
                            const DiffItem& after) = 0;

  const Detail& GetDetail() const { return m_Detail; }
  static std::string Signed(char sign, const std::string& text) {
    if (sign == ' ') return text;
    const Colour other = sign == '+' ? Colour::kGreen : Colour::kYellow;
    return Coloured(text, sign == '-' ? Colour::kRed : other, Out());
  }

 private:
  struct Level {
    std::deque<Row> before;  // what is equal and may be told yet
    std::size_t after = 0;   // how much of what is equal is still told
  };

  void PrintContext() {
    if (!m_iContext) return;
    for (Level& level : m_Levels) {
      for (const Row& same : level.before) Print(' ', same);
      level.before.clear();
      level.after = m_iContext;
    }
  }

  const Detail m_Detail;
  const std::size_t m_iContext = GetStyle().context.value_or(0);
  std::vector<Level> m_Levels;
};

class LineDiff : public TextDiff {
 public:
  LineDiff() : TextDiff({60, true}) {}

 private:
  void Print(char sign, const Row& row) override {
    PrintLine(sign, ' ' + row.path + '/' + (row.before.empty() ? row.after : row.before));
  }
  void PrintHeld(char sign, const std::string& line) override { PrintLine(sign, ' ' + line); }
  void PrintChanged(const std::string& path, const DiffItem& before,
                    const DiffItem& after) override {
    const std::string line = ' ' + path + '/' + before.name;
    if (before.item.object) {
      PrintLine('~', line + " : " + reflect::TypeOf(*before.item.object).className + " -> " +
                         reflect::TypeOf(*after.item.object).className);
      return;
    }
    const Values values = ValuesOf(before, after, 20, GetDetail());
    PrintLine('~', line + ": " + values.before + " -> " + values.after);
  }

  static void PrintLine(char sign, const std::string& line) {
    Out() << Signed(sign, sign + line) << '\n';
  }
};

// The columns of the terminal, or how many there are elsewhere.
std::size_t TerminalWidth() {
  constexpr std::size_t kElsewhere = 130;
  winsize size = {};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kElsewhere;
  return std::max<std::size_t>(size.ws_col, kLeastWidth);
}

// Of a text that is escaped, which is one line of UTF-8.
std::size_t CharactersIn(std::string_view text) { return PositionAfter(text, {1, 1}).column - 1; }
// The bytes of the first `count` of them.
std::size_t SizeOf(std::string_view text, std::size_t count) {
  std::size_t size = 0;
  for (; count && size < text.size(); --count) {
    size += std::max<std::size_t>(CharacterSize(text.substr(size)), 1);
  }
  return size;
}

constexpr std::string_view kCut = "...";

// `text` in `width` columns, of which each character takes one.
std::string InColumns(std::string_view text, std::size_t width) {
  const std::size_t count = CharactersIn(text);
  if (count <= width) return std::string(text) + std::string(width - count, ' ');
  return std::string(text.substr(0, SizeOf(text, width - kCut.size()))).append(kCut);
}

// In so many columns at most; of a longer text the end, which tells more.
std::string EndInColumns(std::string_view text, std::size_t width) {
  const std::size_t count = CharactersIn(text);
  if (count <= width) return std::string(text);
  return std::string(kCut).append(text.substr(SizeOf(text, count - (width - kCut.size()))));
}

class ColumnDiff : public TextDiff {
 public:
  explicit ColumnDiff(std::size_t width)
      : TextDiff({4 * width, false}),  // a character has four bytes at most
        m_iWidth(width),
        m_iColumn((width - kMargin - kBetween) / 2) {}

 private:
  void Print(char sign, const Row& row) override {
    if (!m_bHasPath || row.path != m_Path) {
      m_bHasPath = true;
      m_Path = row.path;
      const std::string line = EndInColumns(m_Path.empty() ? "/" : m_Path, m_iWidth);
      Out() << Coloured(line, Colour::kCyan, Out()) << '\n';
    }
    PrintRow(sign, row.before, row.after);
  }
  void PrintHeld(char sign, const std::string& line) override {
    PrintRow(sign, sign == '-' ? line : "", sign == '+' ? line : "");
  }
  void PrintChanged(const std::string& path, const DiffItem& before,
                    const DiffItem& after) override {
    if (before.item.object) {
      return Print('~', {path, before.name + " : " + reflect::TypeOf(*before.item.object).className,
                         after.name + " : " + reflect::TypeOf(*after.item.object).className});
    }
    // So much of what is equal that there is room for as much of what is not.
    const std::size_t room = m_iColumn - std::min(m_iColumn, before.name.size());
    const Values values =
        ValuesOf(before, after, std::clamp<std::size_t>(room / 4, 2, 20), GetDetail());
    Print('~', {path, before.name + " = " + values.before, after.name + " = " + values.after});
  }

  void PrintRow(char sign, const std::string& before, const std::string& after) const {
    std::string line = InColumns(before, m_iColumn) + ' ' + sign;
    if (!after.empty()) line += ' ' + InColumns(after, m_iColumn);
    line.erase(line.find_last_not_of(' ') + 1);
    Out() << std::string(kMargin, ' ') << Signed(sign, line) << '\n';
  }

  static constexpr std::size_t kMargin = 2;
  static constexpr std::size_t kBetween = 3;

  const std::size_t m_iWidth;
  const std::size_t m_iColumn;
  bool m_bHasPath = false;
  std::string m_Path;  // that was told last
};

}  // namespace

std::string KeyOf(const Node& object) {
  const std::vector<Field> fields = reflect::FieldsOf(object);
  const Field* const key = KeyAmong(fields);
  if (!key) return "";
  const char* const text = key->items[0].text;
  return key->name + ('=' + (text ? text : std::to_string(key->number)));
}

std::string NameIn(const Field& field, const Item& item) {
  if (field.place == ZtPlace::kOwnText) return "(text)";
  if (field.place == ZtPlace::kOwnWords) return "(words)";
  return (reflect::IsAttribute(field) ? "@" : "") + Escape(OrEmpty(reflect::NameOf(field, item)));
}

std::unique_ptr<DiffPrinter> MakeDiffPrinter(const DiffForm& form) {
  if (form.json) return std::make_unique<JsonDiff>();
  if (form.sideBySide)
    return std::make_unique<ColumnDiff>(form.width ? form.width : TerminalWidth());
  return std::make_unique<LineDiff>();
}
