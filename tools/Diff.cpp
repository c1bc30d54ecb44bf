// ztxml diff: compares two documents by the objects that the library reads.
#include <algorithm>
#include <cstddef>
#include <deque>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Align.h"
#include "Colour.h"
#include "Commands.h"
#include "Json.h"
#include "Read.h"
#include "Text.h"
#include "Tree.h"
#include "reflect/Reflect.h"

using reflect::Field;
using reflect::Item;
using reflect::Node;

namespace {

constexpr int kTrouble = 2;

const char* OrEmpty(const char* text) { return text ? text : ""; }

// Attributes of unknown names. Their order does not matter; of several with one name the first
// counts.
std::map<std::string, std::string> AttributesOf(const Field& field) {
  std::map<std::string, std::string> sorted;
  for (const Item& item : field.items) sorted.emplace(OrEmpty(item.name), OrEmpty(item.text));
  return sorted;
}

// A number for each text, equal for equal texts. A map, because hashes could be made to collide.
class Numbers {
 public:
  std::size_t Of(const std::string& text) {
    return m_Numbers.emplace(text, m_Numbers.size()).first->second;
  }

 private:
  std::map<std::string, std::size_t> m_Numbers;
};

// A number for each object, equal for equal trees.
class Contents {
 public:
  // The tree is no deeper than Walk goes.
  std::size_t Of(const Node& node) {
    const XMLElement& object = *node.object;
    const auto known = m_Objects.find(&object);
    if (known != m_Objects.end()) return known->second;
    std::string text = reflect::TypeOf(object).className;
    Append(reflect::ElementNameOf(object), text);
    for (const Field& field : reflect::FieldsOf(node)) {
      text += '|';
      if (field.HoldsAttributes()) {
        for (const auto& [name, value] : AttributesOf(field)) {
          Append(name, text);
          Append(value, text);
        }
        continue;
      }
      for (const Item& item : field.items) text += ',' + std::to_string(Of(field, item));
    }
    const std::size_t number = m_Numbers.Of(text);
    m_Objects.emplace(&object, number);
    return number;
  }
  std::size_t Of(const Field& field, const Item& item) {
    if (item.object) return Of(item.AsNode());
    return m_Numbers.Of(item.text ? '"' + std::string(item.text) : std::to_string(field.number));
  }

 private:
  static void Append(const std::string& part, std::string& text) {
    text += ':' + std::to_string(part.size()) + ':' + part;
  }

  Numbers m_Numbers;
  std::unordered_map<const XMLElement*, std::size_t> m_Objects;
};

std::string ValueOf(const Field& field, const Item& item) {
  if (!item.text) return std::to_string(field.number);
  return field.value == ZtValue::kEnum ? item.text : QuoteShort(item.text);
}

// How two different texts are shown: of long ones only the part where they begin to differ.
std::string ChangeOf(std::string_view before, std::string_view after) {
  constexpr std::size_t kContext = 20;
  const std::size_t least = std::min(before.size(), after.size());
  const auto same = static_cast<std::size_t>(
      std::mismatch(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(least),
                    after.begin())
          .first -
      before.begin());
  std::size_t cut = same > 2 * kContext ? same - kContext : 0;
  while (cut && cut < same && (static_cast<unsigned char>(before[cut]) & 0xc0) == 0x80) ++cut;
  const char* mark = cut ? "..." : "";
  return mark + QuoteShort(before.substr(cut)) + " -> " + mark + QuoteShort(after.substr(cut));
}

// What tells an object from its neighbours, and how people see it, e.g. @id="r1"; both "" for none.
struct Key {
  std::string text;
  std::string shown;
};

Key KeyOf(const Node& object) {
  constexpr std::string_view kKeys[] = {"id", "entity", "uri", "aor", "name", "ref", "type", "cid"};
  Key key;
  std::size_t best = std::size(kKeys);
  for (const Field& field : reflect::FieldsOf(object)) {
    if (!reflect::IsAttribute(field) || !field.name || !field.IsPresent()) continue;
    for (std::size_t i = 0; i < best; ++i) {
      if (kKeys[i] != field.name) continue;
      best = i;
      const Item& item = field.items[0];
      key = {field.name + ('=' + (item.text ? item.text : std::to_string(field.number))),
             " @" + std::string(field.name) + '=' + ValueOf(field, item)};
    }
  }
  return key;
}

std::string NameIn(const Field& field, const Item& item) {
  if (field.place == ZtPlace::kOwnText) return "(text)";
  if (field.place == ZtPlace::kOwnWords) return "(words)";
  return (reflect::IsAttribute(field) ? "@" : "") + Escape(OrEmpty(reflect::NameOf(field, item)));
}

// The names of the entries of a list, each with its place among the entries of equal name.
std::vector<std::string> NamesIn(const Field& field) {
  std::map<std::string, std::size_t> counts;
  std::vector<std::string> names;
  names.reserve(field.items.size());
  for (const Item& item : field.items) {
    std::string name = NameIn(field, item);
    const std::size_t count = ++counts[name];
    if (field.IsRepeated()) name += '[' + std::to_string(count) + ']';
    names.push_back(std::move(name));
  }
  return names;
}

// What is at a path of one document: " = VALUE" or " : TYPE KEY".
std::string Summary(const Field& field, const Item& item) {
  if (!item.object) return " = " + ValueOf(field, item);
  return std::string(" : ") + reflect::TypeOf(*item.object).className + KeyOf(item.AsNode()).shown;
}

std::string JsonOf(const Node& object, const char* name) {
  std::string json;
  AppendJson(object, name, json);
  return json;
}
std::string JsonOf(const Field& field, const Item& item) {
  if (item.object) return JsonOf(item.AsNode(), reflect::NameOf(field, item));
  return item.text ? JsonQuote(item.text) : std::to_string(field.number);
}

// Prints differences, with what is equal around them.
class DiffPrinter {
 public:
  explicit DiffPrinter(bool json) : m_bJson(json), m_iContext(GetStyle().context.value_or(0)) {}

  bool IsJson() const { return m_bJson; }
  /// Whether what is equal is to be told.
  bool HasContext() const { return m_iContext && !m_bJson; }
  /// An object is gone into, of which something is different; and left.
  void Enter() { m_Levels.emplace_back(); }
  void Leave() { m_Levels.pop_back(); }

  /// Something that is equal.
  void Same(const std::string& line) {
    Level& level = m_Levels.back();
    if (level.after) {
      --level.after;
      std::cout << "  " << line << '\n';
      return;
    }
    if (level.before.size() == m_iContext) level.before.pop_front();
    level.before.push_back(line);
  }
  /// Something that is different: a line with its sign, and further ones of what it holds.
  void Line(char sign, const std::string& line, const std::string& held = "") {
    for (Level& level : m_Levels) {
      for (const std::string& same : level.before) std::cout << "  " << same << '\n';
      level.before.clear();
      level.after = m_iContext;
    }
    Print(sign, ' ' + line);
    std::string_view rest = held;
    while (!rest.empty()) {
      const std::size_t size = rest.find('\n');
      Print(sign, "     " + std::string(rest.substr(0, size)));
      rest.remove_prefix(size + 1);
    }
  }
  void Json(const JsonObject& line) { std::cout << line.Done() << '\n'; }

 private:
  struct Level {
    std::deque<std::string> before;  // what is equal and may be told yet
    std::size_t after = 0;           // how much of what is equal is still told
  };

  static void Print(char sign, const std::string& text) {
    const Colour other = sign == '+' ? Colour::kGreen : Colour::kYellow;
    std::cout << Coloured(sign + text, sign == '-' ? Colour::kRed : other, std::cout) << '\n';
  }

  const bool m_bJson;
  const std::size_t m_iContext;
  std::vector<Level> m_Levels;
};

class Comparer {
 public:
  explicit Comparer(bool json) : m_Printer(json) {}

  // Returns whether they are equal.
  bool Compare(const Node& before, const Node& after) {
    const char* const name = reflect::ElementNameOf(*before.object);
    const std::string path = '/' + std::string(name);
    const ZtElementType& old = reflect::TypeOf(*before.object);
    const ZtElementType& now = reflect::TypeOf(*after.object);
    if (&old == &now) {
      CompareObjects(before, after, path);
    } else if (m_Printer.IsJson()) {
      Change(path, JsonOf(before, name), JsonOf(after, reflect::ElementNameOf(*after.object)));
    } else {
      Line('~', path + " : " + old.className + " -> " + now.className);
    }
    return m_bEqual;
  }

 private:
  void Line(char sign, const std::string& line, const std::string& held = "") {
    m_bEqual = false;
    m_Printer.Line(sign, line, held);
  }
  // As JSON; a value that there is none of is "".
  void Change(const std::string& path, const std::string& before, const std::string& after) {
    m_bEqual = false;
    const char* const kind = before.empty() ? "added" : after.empty() ? "removed" : "changed";
    JsonObject line;
    line.Text("change", kind).Text("path", path);
    if (!before.empty()) line.Value("old", before);
    if (!after.empty()) line.Value("new", after);
    m_Printer.Json(line);
  }

  // Something that only one of the documents has.
  void Single(char sign, const std::string& path, const Field& field, const Item& item) {
    if (m_Printer.IsJson()) {
      const std::string value = JsonOf(field, item);
      return sign == '-' ? Change(path, value, "") : Change(path, "", value);
    }
    std::ostringstream held;
    if (item.object) PrintTree(item.AsNode(), reflect::NameOf(field, item), "", held, false);
    Line(sign, path + Summary(field, item), held.str());
  }

  void CompareObjects(const Node& before, const Node& after, const std::string& path) {
    if (m_Contents.Of(before) == m_Contents.Of(after)) return;
    const std::vector<Field> old = reflect::FieldsOf(before);
    const std::vector<Field> now = reflect::FieldsOf(after);
    m_Printer.Enter();
    for (std::size_t i = 0; i < old.size(); ++i) {
      if (old[i].HoldsAttributes()) {
        CompareAttributes(old[i], now[i], path);
      } else {
        CompareLists(old[i], now[i], path);
      }
    }
    m_Printer.Leave();
  }

  // Objects of different types, flags of different names and entries with different keys are not
  // one thing that has changed.
  static bool AreSame(const Field& old, const Item& before, const Field& now, const Item& after) {
    if (!before.object || !after.object) return true;
    return &reflect::TypeOf(*before.object) == &reflect::TypeOf(*after.object) &&
           NameIn(old, before) == NameIn(now, after) &&
           (!old.IsRepeated() || KeyOf(before.AsNode()).text == KeyOf(after.AsNode()).text);
  }

  void CompareItems(const Field& old, const Item& before, const Field& now, const Item& after,
                    const std::string& path) {
    if (m_Contents.Of(old, before) == m_Contents.Of(now, after)) {
      if (m_Printer.HasContext()) m_Printer.Same(path + Summary(old, before));
      return;
    }
    if (before.object && after.object) {
      return CompareObjects(before.AsNode(), after.AsNode(), path);
    }
    if (m_Printer.IsJson()) return Change(path, JsonOf(old, before), JsonOf(now, after));
    const bool texts = old.value == ZtValue::kText && before.text && after.text;
    Line('~', path + ": " +
                  (texts ? ChangeOf(before.text, after.text)
                         : ValueOf(old, before) + " -> " + ValueOf(now, after)));
  }

  std::vector<AlignEntry> Entries(const Field& field) {
    std::vector<AlignEntry> entries;
    for (const Item& item : field.items) {
      const std::string key = item.object ? KeyOf(item.AsNode()).text : "";
      entries.push_back({m_Contents.Of(field, item), m_Keys.Of(NameIn(field, item) + ' ' + key)});
    }
    return entries;
  }

  void CompareLists(const Field& old, const Field& now, const std::string& path) {
    if (old.items.empty() && now.items.empty()) return;
    const std::vector<std::string> oldNames = NamesIn(old);
    const std::vector<std::string> newNames = NamesIn(now);
    const std::vector<std::size_t> matches = Align(Entries(old), Entries(now));
    std::size_t next = 0;  // the first new entry that has not been dealt with
    for (std::size_t i = 0; i <= old.items.size(); ++i) {
      const bool end = i == old.items.size();
      const bool matched = !end && matches[i] != kUnmatched;
      if (!end && (!matched || !AreSame(old, old.items[i], now, now.items[matches[i]]))) {
        Single('-', path + '/' + oldNames[i], old, old.items[i]);
        continue;
      }
      const std::size_t match = end ? now.items.size() : matches[i];
      for (; next < match; ++next) {
        Single('+', path + '/' + newNames[next], now, now.items[next]);
      }
      if (end) return;
      CompareItems(old, old.items[i], now, now.items[match], path + '/' + oldNames[i]);
      next = match + 1;
    }
  }

  void CompareAttributes(const Field& old, const Field& now, const std::string& path) {
    const std::map<std::string, std::string> before = AttributesOf(old);
    const std::map<std::string, std::string> after = AttributesOf(now);
    for (const auto& [name, value] : before) {
      const auto other = after.find(name);
      const std::string at = path + "/@" + Escape(name);
      if (other == after.end()) {
        OneAttribute('-', at, value);
      } else if (value == other->second) {
        if (m_Printer.HasContext()) m_Printer.Same(at + " = " + QuoteShort(value));
      } else if (m_Printer.IsJson()) {
        Change(at, JsonQuote(value), JsonQuote(other->second));
      } else {
        Line('~', at + ": " + ChangeOf(value, other->second));
      }
    }
    for (const auto& [name, value] : after) {
      if (!before.count(name)) OneAttribute('+', path + "/@" + Escape(name), value);
    }
  }
  void OneAttribute(char sign, const std::string& path, const std::string& value) {
    if (!m_Printer.IsJson()) return Line(sign, path + " = " + QuoteShort(value));
    const std::string json = JsonQuote(value);
    return sign == '-' ? Change(path, json, "") : Change(path, "", json);
  }

  DiffPrinter m_Printer;
  Contents m_Contents;
  Numbers m_Keys;
  bool m_bEqual = true;
};

// Goes through a tree to tell how deep it is.
class Depth : public reflect::Visitor {
 public:
  bool Enter(const XMLElement& /*object*/, const char* /*name*/, const Field* /*in*/) override {
    return true;
  }
  void Begin(const Field& /*field*/) override {}
  void End(const Field& /*field*/) override {}
  void Leave(const XMLElement& /*object*/) override {}
};

bool ReadOne(const std::string& path, const Reading& reading, Tree& tree) {
  Document document;
  if (!ReadOneDocument(path, reading.isStandard, "compared", document)) return false;
  Failure failure;
  Depth depth;
  if (!ReadTree(document, reading, tree, failure)) {
    Refuse(document, failure);
    return false;
  }
  if (reflect::Walk(tree.Root(), depth)) return true;
  Refuse(document.name, {"tree", "more than 200 objects within each other"});
  return false;
}

}  // namespace

int Diff(const std::string& oldPath, const std::string& newPath, const Reading& reading,
         bool json) {
  Tree before;
  Tree after;
  if (!ReadOne(oldPath, reading, before) || !ReadOne(newPath, reading, after)) return kTrouble;
  return Comparer(json).Compare(before.Root(), after.Root()) ? 0 : 1;
}
