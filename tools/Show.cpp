// ztxml show: the tree of objects that a document is read as.
#include <iostream>

#include "Commands.h"
#include "Read.h"
#include "Text.h"
#include "reflect/Reflect.h"

using reflect::Field;
using reflect::Item;

namespace {

// The name of a field in the output: like in XPath, attributes begin with "@".
std::string LabelOf(const Field& field) {
  switch (field.place) {
    case ZtPlace::kOwnText:
      return "(text)";
    case ZtPlace::kOwnWords:
      return "(words)";
    default:
      return (reflect::IsAttribute(field) ? "@" : "") + std::string(field.name ? field.name : "");
  }
}

// ---- For people ---------------------------------------------------------------------------------

class TreePrinter : public reflect::Visitor {
 public:
  bool Enter(const XMLElement& object, const char* name, const Field* /*in*/) override {
    Indent() << Escape(name) << " : " << reflect::TypeOf(object).className << '\n';
    ++m_iDepth;
    return true;
  }
  void Begin(const Field& field) override {
    if (field.HoldsAttributes()) {
      for (const Item& item : field.items) {
        Indent() << '@' << Escape(item.name ? item.name : "(default)") << " = "
                 << Quote(item.text ? item.text : "") << '\n';
      }
      return;
    }
    if (field.value == ZtValue::kObject) return;
    for (const Item& item : field.items) {
      Indent() << LabelOf(field) << " = ";
      if (field.value == ZtValue::kEnum) {
        std::cout << item.text;
      } else if (field.value == ZtValue::kText) {
        std::cout << Quote(item.text);
      } else {
        std::cout << field.number;
      }
      std::cout << '\n';
    }
  }
  void End(const Field& /*field*/) override {}
  void Leave(const XMLElement& /*object*/) override { --m_iDepth; }

 private:
  std::ostream& Indent() {
    for (std::size_t i = 0; i < m_iDepth; ++i) std::cout << "  ";
    return std::cout;
  }

  std::size_t m_iDepth = 0;
};

// ---- For programs -------------------------------------------------------------------------------

// Keys are those of LabelOf; other keys begin with "#", which no name in a document does.
class JsonPrinter : public reflect::Visitor {
 public:
  bool Enter(const XMLElement& object, const char* name, const Field* /*in*/) override {
    Separate();
    std::cout << "{\"#element\":" << JsonQuote(name)
              << ",\"#type\":" << JsonQuote(reflect::TypeOf(object).className);
    m_bFirst = false;
    return true;
  }
  void Begin(const Field& field) override {
    Separate();
    std::cout << JsonQuote(KeyOf(field)) << ':' << (field.IsRepeated() ? "[" : "");
    m_bFirst = true;
    for (const Item& item : field.items) PrintItem(field, item);
  }
  void End(const Field& field) override {
    if (field.IsRepeated()) std::cout << ']';
    m_bFirst = false;
  }
  void Leave(const XMLElement& /*object*/) override {
    std::cout << '}';
    m_bFirst = false;
  }

 private:
  static std::string KeyOf(const Field& field) {
    switch (field.place) {
      case ZtPlace::kOwnText:
        return "#text";
      case ZtPlace::kOwnWords:
        return "#words";
      case ZtPlace::kOtherChildren:
        return "#children";
      case ZtPlace::kOtherAttributes:
        return "#attributes";
      default:
        return LabelOf(field);
    }
  }
  void PrintItem(const Field& field, const Item& item) {
    if (item.object) return;  // it comes next, by Enter
    Separate();
    m_bFirst = false;
    if (field.HoldsAttributes()) {
      std::cout << "{\"name\":" << (item.name ? JsonQuote(item.name) : "null")
                << ",\"value\":" << JsonQuote(item.text ? item.text : "") << '}';
    } else if (item.text) {
      std::cout << JsonQuote(item.text);
    } else {
      std::cout << field.number;
    }
  }
  void Separate() {
    if (!m_bFirst) std::cout << ',';
  }

  bool m_bFirst = true;  // in the current object or list
};

int Cut(const Document& document) {
  return Refuse(document.name, {"tree", "cut at 200 objects within each other"});
}

}  // namespace

int ShowObject(const Document& document, const reflect::Node& object, const char* name) {
  TreePrinter printer;
  return reflect::Walk(object, name, printer) ? kDone : Cut(document);
}

int Show(const Document& document, const Reading& reading) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document.name, failure);
  return ShowObject(document, tree.Root(), reflect::ElementNameOf(*tree.root));
}

int ShowJson(const Document& document, const Reading& reading) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) {
    PrintJson(document.name, failure);
    return Refuse(document.name, failure);
  }
  std::cout << "{\"file\":" << JsonQuote(document.name)
            << ",\"schema\":" << JsonQuote(tree.schema->name) << ",\"document\":";
  JsonPrinter printer;
  const bool whole = reflect::Walk(tree.Root(), printer);
  std::cout << "}\n";
  return whole ? kDone : Cut(document);
}

void PrintJson(const std::string& name, const Failure& failure) {
  std::cout << "{\"file\":" << JsonQuote(name) << ",\"error\":{\"kind\":" << JsonQuote(failure.kind)
            << ",\"message\":" << JsonQuote(failure.what);
  if (failure.at.line) {
    std::cout << ",\"line\":" << failure.at.line << ",\"column\":" << failure.at.column;
  }
  if (!failure.path.empty()) std::cout << ",\"path\":" << JsonQuote(failure.path);
  std::cout << "}}\n";
}
