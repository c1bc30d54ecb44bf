// ztxml diff: compares two documents by the objects that the library reads.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Align.h"
#include "Colour.h"
#include "Commands.h"
#include "DiffPrint.h"
#include "Digest.h"
#include "Read.h"
#include "reflect/Reflect.h"

using reflect::Field;
using reflect::Item;
using reflect::Node;

namespace {

constexpr int kTrouble = 2;

// Attributes of unknown names, by name: their order does not matter. Of several with one name the
// first counts.
std::vector<Item> AttributesOf(const Field& field) {
  std::vector<Item> sorted = field.items;
  for (Item& item : sorted) {
    if (!item.name) item.name = "";
    if (!item.text) item.text = "";
  }
  const auto isBefore = [](const Item& one, const Item& other) {
    return std::strcmp(one.name, other.name) < 0;
  };
  std::stable_sort(sorted.begin(), sorted.end(), isBefore);
  const auto isAgain = [](const Item& one, const Item& other) {
    return std::strcmp(one.name, other.name) == 0;
  };
  sorted.erase(std::unique(sorted.begin(), sorted.end(), isAgain), sorted.end());
  return sorted;
}

void AddValue(const Field& field, const Item& item, Digester& to) {
  if (item.text) {
    to.Add(std::string_view(item.text));
  } else {
    to.Add(field.number);
  }
}

// The digests of a document's objects, equal for equal trees. Objects are counted in the order of
// their rows, each before what it holds.
class Contents {
 public:
  explicit Contents(const DigestKey& key) : m_Key(key) {}

  /// False when the tree is deeper than Walk goes.
  bool Read(const Node& root) {
    const bool isWhole = Add(root, reflect::ElementNameOf(*root.object), 0);
    m_Fields = {};
    return isWhole;
  }

  const Digest& Of(std::size_t object) const { return m_Objects[object].digest; }
  /// The number of the first object after `object` and all that it holds.
  std::size_t After(std::size_t object) const { return object + m_Objects[object].size; }
  /// A number for what is at `item`; `object` is the number that it has if it is one.
  std::uint64_t Of(const Field& field, const Item& item, std::size_t object) const {
    if (item.object) return Of(object).low;
    Digester digester(m_Key);
    AddValue(field, item, digester);
    return digester.Done().low;
  }
  std::uint64_t Of(const std::string& text) const {
    Digester digester(m_Key);
    digester.Add(std::string_view(text));
    return digester.Done().low;
  }

 private:
  struct Object {
    Digest digest;
    std::size_t size = 1;  // with those in it
  };

  // `name` is what the object is called in the document.
  bool Add(const Node& node, const char* name, std::size_t depth) {
    if (depth == reflect::kMostDepth) return false;
    if (depth == m_Fields.size()) m_Fields.emplace_back();
    const std::size_t number = m_Objects.size();
    m_Objects.emplace_back();
    reflect::FillFields(node, m_Fields[depth]);
    Digester digester(m_Key);
    digester.Add(std::string_view(reflect::TypeOf(*node.object).className));
    digester.Add(std::string_view(name));
    for (std::size_t i = 0; i < m_Fields[depth].size(); ++i) {
      if (!m_Fields[depth][i].IsPresent()) continue;
      digester.Add(i);
      if (!AddField(i, depth, digester)) return false;
    }
    m_Objects[number] = {digester.Done(), m_Objects.size() - number};
    return true;
  }
  // The fields of a level move when one beneath it is the first of its depth.
  bool AddField(std::size_t index, std::size_t depth, Digester& digester) {
    const auto field = [&]() -> const Field& { return m_Fields[depth][index]; };
    if (field().HoldsAttributes()) {
      const std::vector<Item> attributes = AttributesOf(field());
      digester.Add(attributes.size());
      for (const Item& item : attributes) {
        digester.Add(std::string_view(item.name));
        digester.Add(std::string_view(item.text));
      }
      return true;
    }
    digester.Add(field().items.size());
    for (std::size_t i = 0; i < field().items.size(); ++i) {
      const Item item = field().items[i];
      if (!item.object) {
        AddValue(field(), item, digester);
        continue;
      }
      const std::size_t child = m_Objects.size();
      if (!Add(item.AsNode(), reflect::NameOf(field(), item), depth + 1)) return false;
      digester.Add(Of(child));
    }
    return true;
  }

  const DigestKey& m_Key;
  std::vector<Object> m_Objects;
  std::vector<std::vector<Field>> m_Fields;  // of the open objects, by depth
};

// An entry of a list, and the number of the first object in it or after it.
struct Cursor {
  std::size_t index;
  std::size_t object;
};

// Goes through what a field has in a document.
class List {
 public:
  List(const Field& field, const Contents& contents, std::size_t object)
      : m_Field(field), m_Contents(contents), m_Begin({0, object}), m_At(m_Begin) {}

  const Field& GetField() const { return m_Field; }
  std::size_t Size() const { return m_Field.items.size(); }
  Cursor Begin() const { return m_Begin; }
  Cursor At() const { return m_At; }
  const Item& Get() const { return Get(m_At); }
  const Item& Get(const Cursor& at) const { return m_Field.items[at.index]; }
  void Next() {
    if (HasNames()) ++m_Counts[NameIn(m_Field, Get())];
    m_At = Passed(m_At, m_At.index + 1);
  }
  /// From `at` on to the entry `index`, or to the end.
  Cursor Passed(Cursor at, std::size_t index) const {
    for (; at.index < index; ++at.index) {
      if (Get(at).object) at.object = m_Contents.After(at.object);
    }
    return at;
  }
  /// With its place among the entries of equal name.
  std::string Name() const {
    std::string name = NameIn(m_Field, Get());
    if (!m_Field.IsRepeated()) return name;
    std::size_t place = m_At.index;
    if (HasNames()) {
      const auto count = m_Counts.find(name);
      place = count == m_Counts.end() ? 0 : count->second;
    }
    return name + '[' + std::to_string(place + 1) + ']';
  }

  /// For Align.
  AlignList Entries() const {
    AlignList list;
    list.contents.reserve(Size());
    for (Cursor at = m_Begin; at.index < Size(); at = Passed(at, at.index + 1)) {
      list.contents.push_back(m_Contents.Of(m_Field, Get(at), at.object));
    }
    list.keyOf = [this](std::size_t index) {
      const Item& item = m_Field.items[index];
      const std::string key = item.object ? KeyOf(item.AsNode()) : "";
      return m_Contents.Of(NameIn(m_Field, item) + ' ' + key);
    };
    return list;
  }

 private:
  // Whether its entries have names of their own.
  bool HasNames() const { return m_Field.IsRepeated() && !m_Field.name; }

  const Field& m_Field;
  const Contents& m_Contents;
  const Cursor m_Begin;
  Cursor m_At;
  std::map<std::string, std::size_t> m_Counts;  // of each name that was passed
};

// An object and its number among those of its document.
struct Place {
  Node node;
  std::size_t number;
};

class Comparer {
 public:
  explicit Comparer(DiffPrinter& printer) : m_Printer(printer) {}

  /// Takes a document, which must not be deeper than Walk goes.
  bool ReadOld(const Node& root) { return m_Old.Read(root); }
  bool ReadNew(const Node& root) { return m_New.Read(root); }

  /// Compares the two that were read. Returns whether they are equal.
  bool Compare(const Node& before, const Node& after) {
    const std::string name = reflect::ElementNameOf(*before.object);
    if (&reflect::TypeOf(*before.object) == &reflect::TypeOf(*after.object)) {
      CompareObjects({before, 0}, {after, 0}, '/' + name);
      return m_bEqual;
    }
    const Field field = {nullptr, nullptr, ZtPlace::kOtherChild, ZtValue::kObject, 0, {}};
    const std::string newName = reflect::ElementNameOf(*after.object);
    m_Printer.Changed("", {field, ItemOf(before), name}, {field, ItemOf(after), newName});
    return false;
  }

 private:
  static Item ItemOf(const Node& node) {
    Item item;
    item.object = node.object;
    item.standard = node.standard;
    return item;
  }

  void Only(char sign, const std::string& path, const DiffItem& item) {
    m_bEqual = false;
    m_Printer.Only(sign, path, item);
  }
  void Only(char sign, const std::string& path, const List& list) {
    Only(sign, path, {list.GetField(), list.Get(), list.Name()});
  }
  void Changed(const std::string& path, const DiffItem& before, const DiffItem& after) {
    m_bEqual = false;
    m_Printer.Changed(path, before, after);
  }

  void CompareObjects(const Place& before, const Place& after, const std::string& path) {
    if (m_Old.Of(before.number) == m_New.Of(after.number)) return;
    const std::vector<Field> old = reflect::FieldsOf(before.node);
    const std::vector<Field> now = reflect::FieldsOf(after.node);
    std::size_t oldObject = before.number + 1;
    std::size_t newObject = after.number + 1;
    m_Printer.Enter();
    for (std::size_t i = 0; i < old.size(); ++i) {
      if (old[i].HoldsAttributes()) {
        CompareAttributes(old[i], now[i], path);
        continue;
      }
      List oldList(old[i], m_Old, oldObject);
      List newList(now[i], m_New, newObject);
      CompareLists(oldList, newList, path);
      oldObject = oldList.At().object;
      newObject = newList.At().object;
    }
    m_Printer.Leave();
  }

  // Objects of different types, flags of different names and entries with different keys are not
  // one thing that has changed.
  bool AreSame(const List& old, const List& now, const Cursor& match) const {
    const Item& before = old.Get();
    const Item& after = now.Get(match);
    if (!before.object || !after.object) return true;
    if (m_Old.Of(old.At().object) == m_New.Of(match.object)) return true;
    return &reflect::TypeOf(*before.object) == &reflect::TypeOf(*after.object) &&
           NameIn(old.GetField(), before) == NameIn(now.GetField(), after) &&
           (!old.GetField().IsRepeated() || KeyOf(before.AsNode()) == KeyOf(after.AsNode()));
  }

  bool AreEqual(const List& old, const List& now) const {
    const Item& before = old.Get();
    const Item& after = now.Get();
    if (before.object && after.object)
      return m_Old.Of(old.At().object) == m_New.Of(now.At().object);
    if (!before.text || !after.text) return old.GetField().number == now.GetField().number;
    return std::strcmp(before.text, after.text) == 0;
  }

  void CompareEntries(const List& old, const List& now, const std::string& path) {
    const bool isEqual = AreEqual(old, now);
    if (isEqual && !m_Printer.WantsSame()) return;
    const std::string name = old.Name();
    if (!isEqual && old.Get().object) {
      return CompareObjects({old.Get().AsNode(), old.At().object},
                            {now.Get().AsNode(), now.At().object}, path + '/' + name);
    }
    const std::string newName = now.Name();
    const DiffItem before = {old.GetField(), old.Get(), name};
    const DiffItem after = {now.GetField(), now.Get(), newName};
    if (isEqual) {
      m_Printer.Same(path, before, after);
    } else {
      Changed(path, before, after);
    }
  }

  static std::vector<std::size_t> MatchesOf(const List& old, const List& now) {
    if (old.Size() == 0 || now.Size() == 0) {
      return std::vector<std::size_t>(old.Size(), kUnmatched);
    }
    if (old.Size() == 1 && now.Size() == 1) return {0};
    return Align(old.Entries(), now.Entries());
  }

  void CompareLists(List& old, List& now, const std::string& path) {
    Cursor match = now.Begin();  // of the entry that may be the one of `old`
    for (const std::size_t index : MatchesOf(old, now)) {
      if (index != kUnmatched) match = now.Passed(match, index);
      if (index == kUnmatched || !AreSame(old, now, match)) {
        Only('-', path, old);
      } else {
        for (; now.At().index < index; now.Next()) Only('+', path, now);
        CompareEntries(old, now, path);
        now.Next();
      }
      old.Next();
    }
    for (; now.At().index < now.Size(); now.Next()) Only('+', path, now);
  }

  void CompareAttributes(const Field& old, const Field& now, const std::string& path) {
    const std::vector<Item> before = AttributesOf(old);
    const std::vector<Item> after = AttributesOf(now);
    for (const Item& item : before) {
      const Item* const other = Find(after, item.name);
      const std::string name = NameIn(old, item);
      if (!other) {
        Only('-', path, {old, item, name});
      } else if (std::strcmp(item.text, other->text) != 0) {
        Changed(path, {old, item, name}, {now, *other, name});
      } else if (m_Printer.WantsSame()) {
        m_Printer.Same(path, {old, item, name}, {now, *other, name});
      }
    }
    for (const Item& item : after) {
      if (!Find(before, item.name)) Only('+', path, {now, item, NameIn(now, item)});
    }
  }
  // The attribute of that name, or null; they are sorted.
  static const Item* Find(const std::vector<Item>& attributes, const char* name) {
    const auto found = std::lower_bound(
        attributes.begin(), attributes.end(), name,
        [](const Item& item, const char* than) { return std::strcmp(item.name, than) < 0; });
    const bool isThere = found != attributes.end() && std::strcmp(found->name, name) == 0;
    return isThere ? &*found : nullptr;
  }

  DiffPrinter& m_Printer;
  const DigestKey m_Key;
  Contents m_Old{m_Key};
  Contents m_New{m_Key};
  bool m_bEqual = true;
};

bool ReadOne(const std::string& path, const Reading& reading, Document& document, Tree& tree) {
  if (!ReadOneDocument(path, reading.isStandard, "compared", document)) return false;
  Failure failure;
  if (ReadTree(document, reading, tree, failure)) {
    document.text = {};  // it may be large, and nothing more is told of it
    return true;
  }
  Refuse(document, failure);
  return false;
}

bool Refused(bool isRead, const Document& document) {
  if (!isRead) Refuse(document.name, {"tree", "more than 200 objects within each other"});
  return !isRead;
}

}  // namespace

int Diff(const std::string& oldPath, const std::string& newPath, const Reading& reading,
         const DiffForm& form) {
  const std::unique_ptr<DiffPrinter> printer = MakeDiffPrinter(form);
  Comparer comparer(*printer);
  Document document;
  Tree before;
  if (!ReadOne(oldPath, reading, document, before)) return kTrouble;
  if (Refused(comparer.ReadOld(before.Root()), document)) return kTrouble;
  Tree after;
  if (!ReadOne(newPath, reading, document, after)) return kTrouble;
  if (Refused(comparer.ReadNew(after.Root()), document)) return kTrouble;
  return comparer.Compare(before.Root(), after.Root()) ? 0 : 1;
}
