#include "Tree.h"

#include <ostream>

#include "Json.h"
#include "Text.h"

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
  TreePrinter(const std::string& margin, std::ostream& to, bool whole)
      : m_Margin(margin), m_To(to), m_bSkipsRoot(!whole) {}

  bool Enter(const XMLElement& object, const char* name, const Field* in) override {
    if (m_bSkipsRoot && !in) return true;
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
        m_To << item.text;
      } else if (field.value == ZtValue::kText) {
        m_To << Quote(item.text);
      } else {
        m_To << field.number;
      }
      m_To << '\n';
    }
  }
  void End(const Field& /*field*/) override {}
  void Leave(const XMLElement& /*object*/) override {
    if (m_iDepth) --m_iDepth;
  }

 private:
  std::ostream& Indent() {
    m_To << m_Margin;
    for (std::size_t i = 0; i < m_iDepth; ++i) m_To << "  ";
    return m_To;
  }

  const std::string m_Margin;
  std::ostream& m_To;
  bool m_bSkipsRoot;
  std::size_t m_iDepth = 0;
};

// ---- For programs -------------------------------------------------------------------------------

// Keys are those of LabelOf; other keys begin with "#", which no name in a document does.
class JsonPrinter : public reflect::Visitor {
 public:
  explicit JsonPrinter(std::string& to) : m_To(to) {}

  bool Enter(const XMLElement& object, const char* name, const Field* /*in*/) override {
    Separate();
    m_To += "{\"#element\":" + JsonQuote(name);
    m_To += ",\"#type\":" + JsonQuote(reflect::TypeOf(object).className);
    m_bFirst = false;
    return true;
  }
  void Begin(const Field& field) override {
    Separate();
    m_To += JsonQuote(KeyOf(field)) + ':' + (field.IsRepeated() ? "[" : "");
    m_bFirst = true;
    for (const Item& item : field.items) AddItem(field, item);
  }
  void End(const Field& field) override {
    if (field.IsRepeated()) m_To += ']';
    m_bFirst = false;
  }
  void Leave(const XMLElement& /*object*/) override {
    m_To += '}';
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
  void AddItem(const Field& field, const Item& item) {
    if (item.object) return;  // it comes next, by Enter
    Separate();
    m_bFirst = false;
    if (field.HoldsAttributes()) {
      m_To += JsonObject()
                  .Value("name", item.name ? JsonQuote(item.name) : "null")
                  .Text("value", item.text ? item.text : "")
                  .Done();
    } else {
      m_To += item.text ? JsonQuote(item.text) : std::to_string(field.number);
    }
  }
  void Separate() {
    if (!m_bFirst) m_To += ',';
  }

  std::string& m_To;
  bool m_bFirst = true;  // in the current object or list
};

}  // namespace

bool PrintTree(const reflect::Node& root, const char* name, const std::string& margin,
               std::ostream& to, bool whole) {
  TreePrinter printer(margin, to, whole);
  return reflect::Walk(root, name, printer);
}

bool AppendJson(const reflect::Node& root, const char* name, std::string& json) {
  JsonPrinter printer(json);
  return reflect::Walk(root, name, printer);
}
