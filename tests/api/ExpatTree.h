// The tree that a document of the standard profile has, made of Expat's events.
#ifndef ZTXML_TESTS_API_EXPATTREE_H
#define ZTXML_TESTS_API_EXPATTREE_H

#include <expat.h>
#include <memory>

#include "TreeScript.h"

class ExpatTree {
 public:
  ExpatTree(const ZtDocument& document, const std::string& text) : m_Document(document) {
    m_pParser = XML_ParserCreateNS(nullptr, '\1');
    XML_SetReturnNSTriplet(m_pParser, 1);
    XML_SetUserData(m_pParser, this);
    XML_SetElementHandler(m_pParser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(m_pParser, OnText);
    isXml = XML_Parse(m_pParser, text.data(), static_cast<int>(text.size()), 1) != 0;
    XML_ParserFree(m_pParser);
    if (m_pRoot) Tell(*m_pRoot, "", told);
  }

  bool isXml = false;
  /// What standard::Told tells of the tree; empty when the root is not one of the document.
  std::string told;

 private:
  struct Element {
    const ZtElementType* type = nullptr;
    const ZtField* row = nullptr;
    ZtSpace inside = kZtNoSpace;
    std::string name;
    std::string text;
    std::vector<std::string> values;
    std::set<const ZtField*> taken;
    std::vector<std::unique_ptr<Element>> children;
  };
  /// A name as Expat tells it: namespace, local name, prefix, with what it lacks left out.
  struct Name {
    explicit Name(const char* words) {
      const std::string all = words;
      const std::size_t first = all.find('\1');
      if (first == std::string::npos) {
        local = qualified = all;
        return;
      }
      uri = all.substr(0, first);
      const std::size_t second = all.find('\1', first + 1);
      local = all.substr(first + 1, second == std::string::npos ? second : second - first - 1);
      hasPrefix = second != std::string::npos;
      qualified = hasPrefix ? all.substr(second + 1) + ':' + local : local;
    }
    ZtSpace Space() const {
      const ZtSpace known = ZtSpaceOfUri({uri.data(), uri.size()});
      return known || uri.empty() ? known : ZtSpace{kZtSpacesEnd};
    }
    std::string uri, local, qualified;
    bool hasPrefix = false;
  };

  static void OnStart(void* self, const char* name, const char** attributes) {
    static_cast<ExpatTree*>(self)->Start(Name(name), attributes);
  }
  static void OnEnd(void* self, const char* /*name*/) { static_cast<ExpatTree*>(self)->End(); }
  static void OnText(void* self, const char* text, int size) {
    auto& me = *static_cast<ExpatTree*>(self);
    if (me.m_iSkipped || me.m_Open.empty()) return;
    me.m_Open.back()->text.append(text, static_cast<std::size_t>(size));
  }

  void Start(const Name& name, const char** attributes) {
    auto element = std::make_unique<Element>();
    const bool isKnown =
        !m_iSkipped && (m_Open.empty() ? MatchRoot(*element, name) : MatchChild(*element, name));
    if (!isKnown) {
      ++m_iSkipped;
      return;
    }
    for (; element->type && *attributes; attributes += 2) {
      AddAttribute(*element, Name(attributes[0]), attributes[1]);
    }
    Element* const open = element.get();
    if (m_Open.empty()) {
      m_pRoot = std::move(element);
    } else {
      m_Open.back()->children.push_back(std::move(element));
    }
    m_Open.push_back(open);
  }

  bool MatchRoot(Element& element, const Name& name) {
    m_bPlain = name.uri.empty();
    const ZtSpace own = ZtSpaceOf(m_Document);
    for (const ZtRoot& root : m_Document.roots) {
      if (standard::Copied(root.name.Piece()) != name.local) continue;
      if (!m_bPlain && name.Space() != own) continue;
      element.type = &ZtStandardOf(*root.type);
      element.inside = element.type->space ? ZtSpace{element.type->space} : own;
      return true;
    }
    return false;
  }

  bool MatchChild(Element& element, const Name& name) {
    Element& parent = *m_Open.back();
    if (!parent.type) return false;
    const ZtField* next = parent.type->end();
    const ZtMatch match = ZtMatchChild(*parent.type, next, parent.inside, name.Space(),
                                       {name.local.data(), name.local.size()}, m_bPlain);
    if (!match.row) return false;
    if (ZtIsSingle(*match.row) && !parent.taken.insert(match.row).second) return false;
    element.row = match.row;
    element.type = match.type;
    element.inside = match.inside;
    element.name = name.local;
    return true;
  }

  static void AddValue(Element& element, const std::string& name, const ZtField& row,
                       const std::string& text) {
    char buffer[kZtNumberSize];
    const ZtPiece value = ZtTextOf(row, ZtParse(row, {text.data(), text.size()}), buffer);
    if (value.text) element.values.push_back(name + " = " + standard::TextIn(row, value));
  }

  static void AddAttribute(Element& element, const Name& name, const char* value) {
    for (const ZtField& row : *element.type) {
      if (row.place != ZtPlace::kAttribute || name.hasPrefix) continue;
      if (standard::Copied(row.name.Piece()) != name.local) continue;
      return AddValue(element, "@" + name.local, row, value);
    }
    if (element.type->rows.keepsAttributes) {
      element.values.push_back("other @" + name.qualified + " = " + value);
    }
  }

  void End() {
    if (m_iSkipped) {
      --m_iSkipped;
      return;
    }
    Element& element = *m_Open.back();
    m_Open.pop_back();
    if (!element.type) return;
    for (const ZtField& row : *element.type) {
      if (row.place == ZtPlace::kOwnText && !element.text.empty()) {
        AddValue(element, "(text)", row, element.text);
        if (!element.values.empty() && element.values.back() == "(text) = ") {
          element.values.pop_back();
        }
      } else if (row.place == ZtPlace::kOwnWords) {
        const std::string words = standard::WordsIn({element.text.data(), element.text.size()});
        if (!words.empty()) element.values.push_back("(words) = " + words);
      }
    }
  }

  static void Tell(Element& element, std::string indent, std::string& told) {
    told += indent + element.name + '\n';
    indent += ' ';
    for (const auto& child : element.children) {
      if (child->type || child->row->place != ZtPlace::kTextElement) continue;
      AddValue(element, child->name, *child->row, child->text);
    }
    std::sort(element.values.begin(), element.values.end());
    for (const std::string& value : element.values) told += indent + value + '\n';
    for (const ZtField& row : *element.type) {
      for (const auto& child : element.children) {
        if (child->row != &row) continue;
        if (child->type) {
          Tell(*child, indent, told);
        } else if (row.place == ZtPlace::kTextElements) {
          const ZtPiece text(child->text.data(), child->text.size());
          told += indent + child->name + ": " + standard::TextIn(row, text) + '\n';
        }
      }
    }
  }

  const ZtDocument& m_Document;
  XML_Parser m_pParser;
  std::unique_ptr<Element> m_pRoot;
  std::vector<Element*> m_Open;
  unsigned m_iSkipped = 0;
  bool m_bPlain = false;
};

#endif  // ZTXML_TESTS_API_EXPATTREE_H
