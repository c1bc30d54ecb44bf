// Trees of the standard profile, made and changed by a script of bytes, by the rows of their types;
// and what must hold for the texts that are written of them.
#ifndef ZTXML_TESTS_API_TREESCRIPT_H
#define ZTXML_TESTS_API_TREESCRIPT_H

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "binding/ZtSourceText.h"
#include "binding/ZtStandardWriter.h"
#include "model/ZtOwnership.h"
#include "text/ZtEscape.h"
#include "text/ZtXmlReader.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ztHostPlatform.h"

/// Decisions that are made by bytes; all are 0 after the last byte.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : m_pAt(data), m_pEnd(data + size) {}
  bool AreLeft() const { return m_pAt != m_pEnd; }
  unsigned Below(std::size_t count) {
    return count < 2 || !AreLeft() ? 0 : *m_pAt++ % static_cast<unsigned>(count);
  }
  bool OneIn(unsigned count) { return AreLeft() && Below(count) == 0; }

  /// A text: mostly one that XML allows.
  std::string Text() {
    static const char* const kTexts[] = {
        // Words, also those that look like markup.
        "x", "sip:a@b.example", "2005-01-01T00:00:00Z", "1", "true", "http://example.com/?a=b&c",
        "&amp;", "<!-- -->", "<![CDATA[", "]]>", "<&>\"'",
        // Blanks and line ends.
        "", " a  b ", "\t\n\r", "a\rb", "\xC2\x85", "\xE2\x80\xA8",
        // Characters of two, three and four bytes.
        "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xEF\xBB\xBF"};
    static const char* const kBad[] = {"\x01", "\xC3", "\xEF\xBF\xBF", "\xED\xA0\x80"};
    if (OneIn(60)) return kBad[Below(std::size(kBad))];
    std::string text;
    for (unsigned i = 1 + Below(3); i; --i) text += kTexts[Below(std::size(kTexts))];
    return text;
  }

 private:
  const std::uint8_t* m_pAt;
  const std::uint8_t* m_pEnd;
};

namespace standard {

constexpr char kSource[] = "tests/TreeScript";

inline std::string Copied(ZtPiece piece) {
  return piece.size ? std::string(piece.text, piece.size) : std::string();
}

/// An object of a tree, as the standard profile takes it.
struct Node {
  XMLElement* object;
  const ZtElementType* type;
  ZtSpace inside;
};

inline Node RootOf(const ZtDocument& document, XMLElement& root) {
  for (const ZtRoot& known : document.roots) {
    if (!ZtIsA(root, *known.type)) continue;
    const ZtElementType& type = ZtStandardOf(*known.type);
    const ZtSpace own = ZtSpaceOfPrefix(known.type->prefix);
    return {&root, &type, type.space ? ZtSpace{type.space} : own ? own : ZtSpaceOf(document)};
  }
  return {&root, nullptr, kZtNoSpace};
}

inline bool IsList(const ZtField& row) {
  return row.place == ZtPlace::kTextElements || row.place == ZtPlace::kChildren ||
         row.place == ZtPlace::kOtherChildren || row.place == ZtPlace::kOwnWords;
}
inline bool IsOne(const ZtField& row) {
  return row.place == ZtPlace::kChild || row.place == ZtPlace::kOtherChild;
}
inline bool IsScalar(const ZtField& row) {
  return row.place == ZtPlace::kAttribute || row.place == ZtPlace::kTextElement ||
         row.place == ZtPlace::kOwnText;
}
inline bool HoldsTexts(const ZtField& row) {
  return row.place == ZtPlace::kTextElements || row.place == ZtPlace::kOwnWords;
}

/// The objects that a row of `node` has, without those that are null.
inline std::vector<XMLElement*> ItemsOf(const Node& node, const ZtField& row) {
  std::vector<XMLElement*> items;
  if (IsOne(row)) {
    if (XMLElement* child = row.Child(*node.object).Get()) items.push_back(child);
  } else if (IsList(row)) {
    for (ZtListNode* at = row.Children(*node.object).Head(); at; at = at->next) {
      if (at->data) items.push_back(static_cast<XMLElement*>(at->data));
    }
  }
  return items;
}
inline std::vector<zt_AttributeValuePair*> PairsOf(const Node& node, const ZtField& row) {
  std::vector<zt_AttributeValuePair*> pairs;
  for (ZtListNode* at = row.Attributes(*node.object).Head(); at; at = at->next) {
    auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(at->data));
    if (pair) pairs.push_back(pair);
  }
  return pairs;
}
inline Node NodeOf(const Node& parent, const ZtField& row, XMLElement* child) {
  const ZtMatch match = ZtMatchObject(row, parent.inside, *child);
  return {child, match.type, match.inside};
}

/// Calls `each` with every object that is written, parents first.
template <class Each>
void ForEach(const Node& node, const Each& each) {
  if (!node.type) return;
  each(node);
  for (const ZtField& row : *node.type) {
    if (HoldsTexts(row) || !(IsOne(row) || IsList(row))) continue;
    for (XMLElement* child : ItemsOf(node, row)) {
      if (ZtStandardWriter::IsThere(*child)) ForEach(NodeOf(node, row, child), each);
    }
  }
}

// ---- What a tree tells --------------------------------------------------------------------------

inline bool IsDeclaration(const std::string& name) {
  return name == "xmlns" || name.compare(0, 6, "xmlns:") == 0;
}

inline std::string TextIn(const ZtField& row, ZtPiece text) {
  return Copied(row.Is(kZtFreeText) || !text.size ? text : ZtTrimmed(text));
}

/// The words of a text.
inline std::string WordsIn(ZtPiece rest) {
  std::string words;
  for (char c : Copied(rest)) words += ZtIsBlank(c) ? ' ' : c;
  words.erase(
      std::unique(words.begin(), words.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
      words.end());
  return Copied(ZtTrimmed({words.data(), words.size()}));
}

/// The values of one object, each with its name.
inline std::vector<std::string> ValuesOf(const Node& node) {
  std::vector<std::string> values;
  std::set<std::string> names;
  for (const ZtField& row : *node.type) {
    const std::string name = row.HasName() ? Copied(row.name.Piece()) : "";
    if (IsScalar(row)) {
      char buffer[kZtNumberSize];
      const ZtPiece text = ZtTextOf(row, ZtHeld(*node.object, row), buffer);
      const std::string words = TextIn(row, text);
      const bool isOwn = row.place == ZtPlace::kOwnText;
      if (!text.text || (isOwn && words.empty())) continue;
      const bool isAttribute = row.place == ZtPlace::kAttribute;
      if (isAttribute) names.insert(name);
      values.push_back((isAttribute ? "@" + name : isOwn ? "(text)" : name) + " = " + words);
    } else if (row.place == ZtPlace::kOwnWords) {
      std::string words;
      for (XMLElement* item : ItemsOf(node, row)) {
        const zt_string* text = zt_string::From(item);
        words += text && text->getValue() ? std::string(" ") + text->getValue() : "";
      }
      words = WordsIn({words.data(), words.size()});
      if (!words.empty()) values.push_back("(words) = " + words);
    }
  }
  if (node.type->rows.keepsAttributes) {
    for (const zt_AttributeValuePair* pair : PairsOf(node, ZtOthersOf(*node.type))) {
      const std::string name = pair->getName() ? pair->getName() : "";
      if (name.empty() || IsDeclaration(name)) continue;
      const std::string local = name.substr(name.find(':') + 1);
      const char* uri = pair->getNamespaceValue();
      if (!names.insert(uri ? std::string(uri) + ' ' + local : name).second) continue;
      const ZtPiece value = pair->getValue() ? ZtPiece(pair->getValue()) : ZtPiece("", 0);
      const ZtField* row = nullptr;
      for (const ZtField& other : *node.type) {
        if (other.place == ZtPlace::kAttribute && Copied(other.name.Piece()) == name) row = &other;
      }
      if (!row) {
        values.push_back("other @" + name + " = " + Copied(value));
        continue;
      }
      // One that has the name of a row is read as that.
      char buffer[kZtNumberSize];
      const ZtPiece text = ZtTextOf(*row, ZtParse(*row, value), buffer);
      if (text.text) values.push_back("@" + name + " = " + Copied(text));
    }
  }
  std::sort(values.begin(), values.end());
  return values;
}

/// A tree as the standard profile has it, a line for each object and value.
inline void Tell(const Node& node, const std::string& name, std::string indent, std::string& told) {
  told += indent + name + '\n';
  if (!node.type) return;
  indent += ' ';
  for (const std::string& value : ValuesOf(node)) told += indent + value + '\n';
  for (const ZtField& row : *node.type) {
    if (row.place == ZtPlace::kOwnWords || !(IsOne(row) || IsList(row))) continue;
    for (XMLElement* child : ItemsOf(node, row)) {
      if (row.place == ZtPlace::kTextElements) {
        const zt_string* text = zt_string::From(child);
        if (text && text->getValue()) {
          told += indent + Copied(row.name.Piece()) + ": " + TextIn(row, text->getValue()) + '\n';
        }
      } else if (ZtStandardWriter::IsThere(*child)) {
        Tell(NodeOf(node, row, child), Copied(ZtNameOfObject(row, *child)), indent, told);
      }
    }
  }
}
inline std::string Told(const ZtDocument& document, XMLElement& root) {
  std::string told;
  Tell(RootOf(document, root), "", "", told);
  return told;
}

/// Whether all of a tree is what XML and its schema allow. A tree of which this does not hold may
/// be refused.
inline bool IsSound(const Node& root) {
  bool sound = true;
  ForEach(root, [&](const Node& node) {
    const auto check = [&](ZtPiece text) { sound = sound && (!text.size || ZtIsXmlText(text)); };
    for (const ZtField& row : *node.type) {
      const std::vector<XMLElement*> items = ItemsOf(node, row);
      if (IsScalar(row)) {
        const ZtStated held = ZtHeld(*node.object, row);
        sound = sound && (held.stated || !ZtIsRequired(row));
        check(held.text);
      } else if (IsOne(row)) {
        sound = sound &&
                (!ZtIsRequired(row) || (!items.empty() && ZtStandardWriter::IsThere(*items[0])));
      } else if (row.place == ZtPlace::kOtherAttributes) {
        for (const zt_AttributeValuePair* pair : PairsOf(node, row)) {
          const std::string name = pair->getName() ? pair->getName() : "x";
          const bool isXml = name.compare(0, 4, "xml:") == 0;
          const bool isBound = name.find(':') == std::string::npos || isXml;
          sound = sound && ZtIsQualifiedName({name.data(), name.size()}) && !IsDeclaration(name) &&
                  (isBound || pair->getNamespaceValue());
          check(pair->getValue());
        }
      }
      for (XMLElement* item : items) {
        if (HoldsTexts(row)) check(zt_string::From(item)->getValue());
        if (HoldsTexts(row) || !ZtStandardWriter::IsThere(*item)) continue;
        sound = sound && NodeOf(node, row, item).type && ZtNameOfObject(row, *item).text;
      }
      if (row.Is(kZtPaired)) sound = sound && items.size() == ItemsOf(node, (&row)[1]).size();
    }
  });
  return sound;
}

// ---- Trees as callers build them ----------------------------------------------------------------

class Maker {
 public:
  explicit Maker(Choices& choices) : m_Choices(choices) {}

  /// Sets a value of an object, sometimes to none.
  void SetValue(const Node& node, const ZtField& row, bool canClear) {
    const bool clears = canClear && m_Choices.OneIn(3);
    if (clears) return ZtClear(*node.object, row);
    switch (row.value) {
      case ZtValue::kText: {
        const std::string text = m_Choices.Text();
        row.Text(*node.object).Assign(text.c_str());
        return;
      }
      case ZtValue::kNumber64:
        row.Number64(*node.object).Set(m_Choices.OneIn(4) ? ~0ULL : m_Choices.Below(256));
        return;
      case ZtValue::kNumber:
        row.Number(*node.object)
            .Set(m_Choices.OneIn(4) ? ~0U >> m_Choices.Below(2) : m_Choices.Below(256));
        return;
      case ZtValue::kEnum:
        row.Number(*node.object)
            .Set(m_Choices.Below(row.detail.values->count + (canClear ? 1U : 0U)));
        return;
      case ZtValue::kObject:
        return;
    }
  }

  /// A new object for a row, null when there is none.
  XMLElement* NewItem(const Node& parent, const ZtField& row, int depth) {
    const ZtSource source = {kSource, nullptr};
    if (HoldsTexts(row)) {
      const std::string text = m_Choices.Text();
      return ZtMakeString(source, {text.data(), text.size()});
    }
    const ZtElementType* type = nullptr;
    if (row.HasName()) {
      type = &ZtStandardOf(*row.detail.type);
    } else {
      std::vector<const ZtChoice*> choices;
      for (const ZtChoice* at = row.detail.choices; at && at->type; ++at) {
        if (!at->name.IsNone()) choices.push_back(at);
      }
      if (choices.empty()) return nullptr;
      const ZtChoice& choice = *choices[m_Choices.Below(choices.size())];
      type = &ZtStandardOf(*choice.type);
      if (type->extras->flag) {
        std::vector<ZtPiece> names = {choice.name.Piece()};
        for (const ZtNameId* at = choice.others; at && !at->IsNone(); ++at) {
          names.push_back(at->Piece());
        }
        return ZtMakeFlag(source, names[m_Choices.Below(names.size())]);
      }
    }
    XMLElement* object = type->Create(source);
    if (object) Fill(NodeOf(parent, row, object), depth + 1);
    return object;
  }

  /// A new attribute that no row names. Some have names that a row has, or that are none.
  zt_AttributeValuePair* NewPair(const Node& node) {
    static const char* const kNames[] = {"x", "xml:lang", "id", "y", "z"};
    static const char* const kBad[] = {"a b", "q:x", "xmlns", "xmlns:q", "xmlns:xml", ":", ""};
    std::string name = kNames[m_Choices.Below(std::size(kNames))];
    if (m_Choices.OneIn(20)) name = kBad[m_Choices.Below(std::size(kBad))];
    if (node.type->rows.attributes && m_Choices.OneIn(8)) {
      const ZtField& row = node.type->begin()[m_Choices.Below(node.type->rows.attributes)];
      // Not of one whose attribute may hold what is none of its values: it would stay.
      if (row.HasName() && row.value == ZtValue::kText) name = Copied(row.name.Piece());
    }
    return zt_xml_common_methods::CreateAttribute(name.c_str(), m_Choices.Text().c_str());
  }

  void Fill(const Node& node, int depth) {
    if (!node.type) return;
    for (const ZtField& row : *node.type) {
      const bool isSecond = &row != node.type->begin() && (&row)[-1].Is(kZtPaired);
      if (IsScalar(row)) {
        const bool must = ZtIsRequired(row) && !m_Choices.OneIn(100);
        if (must || m_Choices.OneIn(3)) SetValue(node, row, false);
      } else if (row.place == ZtPlace::kOtherAttributes) {
        for (unsigned i = m_Choices.Below(3); i > 0; --i) AddPair(node, row);
      } else if (isSecond) {
        for (std::size_t i = ItemsOf(node, (&row)[-1]).size(); i; --i) AddItem(node, row, depth);
      } else if (IsList(row)) {
        if (depth > 6) continue;
        for (unsigned i = m_Choices.Below(depth > 3 ? 2 : 4); i; --i) AddItem(node, row, depth);
      } else if (ZtIsRequired(row) || (depth < 6 && m_Choices.OneIn(2))) {
        AddItem(node, row, depth);
      }
    }
  }

  void AddItem(const Node& node, const ZtField& row, int depth) {
    XMLElement* item = NewItem(node, row, depth);
    if (item && !Give(node, row, item)) ZtRelease(item);
  }
  static bool Give(const Node& node, const ZtField& row, XMLElement* item) {
    return IsOne(row) ? row.Child(*node.object).Take(item)
                      : row.Children(*node.object).Add(item) != 0;
  }
  void AddPair(const Node& node, const ZtField& row) {
    zt_AttributeValuePair* pair = NewPair(node);
    if (pair && !row.Attributes(*node.object).Add(pair)) ZtRelease(pair);
  }

 private:
  Choices& m_Choices;
};

// ---- Trees as callers change them ---------------------------------------------------------------

class Changer {
 public:
  Changer(Choices& choices, const Node& root, const Node& other)
      : m_Choices(choices), m_Maker(choices), m_Root(root), m_Other(other) {}

  /// Chooses what the next Change is made in: an object and a row of it, null for a flag or none.
  void Choose() {
    const std::vector<Node> nodes = NodesOf(m_Root);
    m_Chosen = nodes[m_Choices.Below(nodes.size())];
    const std::size_t rows = m_Chosen.type->extras->flag ? 0 : m_Chosen.type->fields.size();
    m_pRow = rows ? m_Chosen.type->begin() + m_Choices.Below(rows) : nullptr;
  }
  const Node& Chosen() const { return m_Chosen; }
  const ZtField* Row() const { return m_pRow; }

  /// Whether nothing else has changed.
  bool Change() {
    m_bElsewhere = false;
    if (m_pRow) {
      ChangeRow(m_Chosen, *m_pRow);
    } else if (m_Chosen.type->extras->flag) {
      ChangeFlag(m_Chosen);
    }
    return !m_bElsewhere;
  }

 private:
  static std::vector<Node> NodesOf(const Node& root) {
    std::vector<Node> nodes;
    ForEach(root, [&](const Node& node) { nodes.push_back(node); });
    return nodes;
  }

  void ChangeRow(const Node& node, const ZtField& row) {
    const bool isSecond = &row != node.type->begin() && (&row)[-1].Is(kZtPaired);
    if (IsScalar(row)) return m_Maker.SetValue(node, row, true);
    if (row.place == ZtPlace::kOtherAttributes) return ChangePairs(node, row);
    if (IsOne(row)) return ChangeChild(node, row);
    if (!row.Is(kZtPaired) && !isSecond) return ChangeList(node, row);
    if (m_Choices.OneIn(2)) return ChangeTexts(node, row, false);
    ChangePairOfLists(node, isSecond ? (&row)[-1] : row);
  }

  void ChangeFlag(const Node& node) {
    auto& flag = static_cast<zt_empty_element_type&>(*node.object);
    if (m_Choices.OneIn(2)) {
      flag.setPresentValue(0);
    } else {
      flag.setValue(m_Choices.OneIn(2) ? "anonymous" : "busy");
    }
  }

  void ChangePairs(const Node& node, const ZtField& row) {
    const std::vector<zt_AttributeValuePair*> pairs = PairsOf(node, row);
    zt_AttributeValuePair* pair = pairs.empty() ? nullptr : pairs[m_Choices.Below(pairs.size())];
    ZtSingleElementList* list = row.Attributes(*node.object).Get();
    switch (pair ? m_Choices.Below(4) : 0) {
      case 0:
        return m_Maker.AddPair(node, row);
      case 1:
        pair->setValue(m_Choices.Text().c_str());
        return;
      case 2:
        pair->setName(m_Choices.OneIn(2) ? "x" : "renamed");
        return;
      default:
        list->Remove(static_cast<XMLAttribute*>(pair));
        ZtRelease(pair);
    }
  }

  void ChangeChild(const Node& node, const ZtField& row) {
    if (m_Choices.OneIn(2)) {
      row.Child(*node.object).Set(nullptr);
    } else {
      m_Maker.AddItem(node, row, 3);
    }
  }

  void ChangeTexts(const Node& node, const ZtField& row, bool canClear) {
    const std::vector<XMLElement*> items = ItemsOf(node, row);
    if (!HoldsTexts(row) || items.empty()) return;
    zt_string* text = zt_string::From(items[m_Choices.Below(items.size())]);
    const std::string value = m_Choices.Text();
    text->setValue(canClear && m_Choices.OneIn(4) ? nullptr : value.c_str());
  }

  // Of two lists that alternate, entries come and go together.
  void ChangePairOfLists(const Node& node, const ZtField& first) {
    const ZtField& second = (&first)[1];
    const std::vector<XMLElement*> items = ItemsOf(node, first);
    const unsigned at = m_Choices.Below(items.size());
    switch (items.empty() ? 0 : m_Choices.Below(3)) {
      case 0:
        m_Maker.AddItem(node, first, 3);
        return m_Maker.AddItem(node, second, 3);
      case 1:  // one goes to the end, and its partner stays
        first.Children(*node.object).Get()->Remove(items[at]);
        if (!Maker::Give(node, first, items[at])) ZtRelease(items[at]);
        return;
      default:
        for (const ZtField* row : {&first, &second}) {
          XMLElement* const item = ItemsOf(node, *row)[at];
          row->Children(*node.object).Get()->Remove(item);
          ZtRelease(item);
        }
    }
  }

  void ChangeList(const Node& node, const ZtField& row) {
    std::vector<XMLElement*> items = ItemsOf(node, row);
    ZtSingleElementList* list = row.Children(*node.object).Get();
    if (items.empty()) return m_Maker.AddItem(node, row, 3);
    XMLElement* const one = items[m_Choices.Below(items.size())];
    switch (m_Choices.Below(6)) {
      case 0:
        return m_Maker.AddItem(node, row, 3);
      case 1:
        list->Remove(one);
        return ZtRelease(one);
      case 2:
        if (HoldsTexts(row)) return ChangeTexts(node, row, true);
        return Steal(node, row);
      case 3:
        list->Remove(one);
        return Place(one, row, node);
      default:
        return Reorder(node, row, items);
    }
  }

  // All out, and in again in another order; sometimes with a new one among them.
  void Reorder(const Node& node, const ZtField& row, std::vector<XMLElement*>& items) {
    ZtSingleElementList* list = row.Children(*node.object).Get();
    for (XMLElement* item : items) list->Remove(item);
    if (m_Choices.OneIn(2)) {
      std::reverse(items.begin(), items.end());
    } else {
      std::rotate(items.begin(), items.begin() + m_Choices.Below(items.size()), items.end());
    }
    const std::size_t among = m_Choices.OneIn(2) ? m_Choices.Below(items.size()) : items.size();
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i == among) m_Maker.AddItem(node, row, 3);
      if (!Maker::Give(node, row, items[i])) ZtRelease(items[i]);
    }
  }

  // Puts an object that has no owner into some list of the tree that takes it.
  void Place(XMLElement* item, const ZtField& row, const Node& home) {
    m_bElsewhere = true;
    std::vector<std::pair<Node, const ZtField*>> places;
    for (const Node& node : NodesOf(m_Root)) {
      if (node.type->extras->flag) continue;
      for (const ZtField& other : *node.type) {
        const bool fits = HoldsTexts(row) == HoldsTexts(other) && IsList(other) &&
                          !other.Is(kZtPaired) &&
                          !(&other != node.type->begin() && (&other)[-1].Is(kZtPaired)) &&
                          (HoldsTexts(row) || NodeOf(node, other, item).type);
        if (fits) places.emplace_back(node, &other);
      }
    }
    if (places.empty()) places.emplace_back(home, &row);
    const auto& place = places[m_Choices.Below(places.size())];
    if (!Maker::Give(place.first, *place.second, item)) ZtRelease(item);
  }

  // Takes an entry out of the other tree.
  void Steal(const Node& node, const ZtField& row) {
    for (const Node& other : NodesOf(m_Other)) {
      if (other.type != node.type) continue;
      const std::vector<XMLElement*> items = ItemsOf(other, row);
      if (items.empty()) continue;
      XMLElement* const item = items[m_Choices.Below(items.size())];
      row.Children(*other.object).Get()->Remove(item);
      return Place(item, row, node);
    }
  }

  Choices& m_Choices;
  Maker m_Maker;
  Node m_Root;
  Node m_Other;
  Node m_Chosen = {};
  const ZtField* m_pRow = nullptr;
  bool m_bElsewhere = false;
};

}  // namespace standard

#endif  // ZTXML_TESTS_API_TREESCRIPT_H
