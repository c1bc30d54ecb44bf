#include "Programs.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <deque>

#include "Accessors.h"
#include "Pages.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ZtCalls.h"

namespace docs {

namespace {

// "retry-after" as a variable: retryAfter; "root" where that would be none.
std::string VariableOf(const std::string& name) {
  std::string variable;
  bool upper = false;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte)) variable += upper ? static_cast<char>(std::toupper(byte)) : c;
    upper = !std::isalnum(byte);
  }
  return variable.empty() || std::isdigit(static_cast<unsigned char>(variable[0])) ? "root"
                                                                                   : variable;
}

bool IsFlag(const XMLElement& object) {
  return &reflect::TypeOf(object) == &zt_empty_element_type::kType;
}

// What an object has in a row, and how a program asks for it.
struct Value {
  reflect::Field field;
  std::string name;
  std::string getter;
  std::string optional;  // the accessor that tells whether it is stated, "" when there is none
  bool isBoolean = false;

  const std::vector<reflect::Item>& Items() const { return field.items; }
  bool IsText() const {
    return field.value == ZtValue::kText && !field.IsRepeated() && !Items().empty();
  }
  // Whether it is a number or boolean that is stated.
  bool IsStated(const XMLElement& object) const {
    if (optional.empty() || (field.value == ZtValue::kEnum && !isBoolean)) return false;
    return field.value == ZtValue::kNumber64 ? field.row->Number64(object).IsSet()
                                             : field.row->Number(object).IsSet();
  }
  std::string Printed() const {
    if (optional.empty()) return IsText() ? Items()[0].text : "";
    if (isBoolean) return field.number ? "true" : "false";
    return std::to_string(field.number);
  }
};

std::vector<Value> ValuesOf(const XMLElement& object) {
  const std::vector<reflect::Field> fields = reflect::FieldsOf(object);
  const std::vector<Accessors> accessors = AccessorsOf(reflect::TypeOf(object));
  std::vector<Value> values;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (fields[i].HoldsAttributes()) continue;
    Value value = {fields[i], fields[i].name ? fields[i].name : reflect::ElementNameOf(object),
                   accessors[i].getter, accessors[i].optional, false};
    value.isBoolean =
        value.field.value == ZtValue::kEnum && value.field.row->detail.values &&
        reflect::ValuesOf(*value.field.row)->count == 2 &&
        std::strcmp(reflect::ValuesOf(*value.field.row)->slots[1].Piece().text, "true") == 0;
    if (!value.getter.empty()) values.push_back(value);
  }
  return values;
}

// The first text of an object, else its first number or boolean; null when there is none.
const Value* FirstOf(const std::vector<Value>& values, const XMLElement& object) {
  for (const Value& value : values) {
    if (value.IsText()) return &value;
  }
  for (const Value& value : values) {
    if (value.IsStated(object)) return &value;
  }
  return nullptr;
}
bool HasValue(const reflect::Item& item) {
  return item.object && FirstOf(ValuesOf(*item.object), *item.object);
}
// The line that is printed of an object's value that `getter` gives: a text, also if it is absent;
// a number or boolean if it is stated.
std::string Printed(const XMLElement& object, const std::string& getter) {
  for (const Value& value : ValuesOf(object)) {
    if (value.getter != getter) continue;
    const bool isText = value.optional.empty();
    if (isText || value.IsStated(object)) return value.name + ": " + value.Printed() + "\n";
  }
  return "";
}

// An object that is reached from the root by getters of single children.
struct Place {
  const XMLElement* object;
  std::vector<Value> way;
};

class Writer {
 public:
  explicit Writer(std::size_t indent) : m_iIndent(indent) {}

  // The root, which a program reaches by `access`, e.g. "reginfo.".
  void Show(const XMLElement& root, const std::string& access) {
    m_Prints = Printed(root, Say(root, access));
    std::deque<Place> places = {{&root, {}}};
    for (; !places.empty(); places.pop_front()) {
      const Place place = places.front();
      for (const Value& value : ValuesOf(*place.object)) {
        if (value.Items().empty() || !value.Items()[0].object) continue;
        if (Walk(place, value, access)) return;
        if (value.field.row && value.field.row->place == ZtPlace::kChild) {
          places.push_back({value.Items()[0].object, place.way});
          places.back().way.push_back(value);
        }
      }
    }
  }
  const std::string& Code() const { return m_Code; }
  const std::string& Prints() const { return m_Prints; }

 private:
  void Line(const std::string& text) { m_Code += std::string(m_iIndent, ' ') + text + "\n"; }
  void Open(const std::string& text) {
    const std::size_t colon = m_iIndent + text.size() > 98 ? text.find(" : ") : std::string::npos;
    if (colon == std::string::npos) {
      Line(text + " {");
    } else {  // a loop in two lines
      Line(text.substr(0, colon + 2));
      Line("     " + text.substr(colon + 3) + " {");
    }
    m_iIndent += 2;
  }
  void Close() {
    m_iIndent -= 2;
    Line("}");
  }

  // Has the first value of `object` printed; the getter of that value.
  std::string Say(const XMLElement& object, const std::string& access) {
    const std::vector<Value> values = ValuesOf(object);
    const Value* const value = FirstOf(values, object);
    if (!value) return "";
    const std::string begin = "std::cout << \"" + value->name + ": \" << ";
    if (value->IsText()) {
      Line(begin + "ztxml::Text(" + access + value->getter + "()) << '\\n';");
      return value->getter;
    }
    const std::string variable = VariableOf(value->optional);
    const std::string said =
        value->isBoolean ? "(*" + variable + " ? \"true\" : \"false\")" : "*" + variable;
    Open("if (const auto " + variable + " = " + access + value->optional + "())");
    Line(begin + said + " << '\\n';");
    Close();
    return value->getter;
  }

  // Declares the children on the way to an object; how a program then reaches the object.
  std::string GoTo(const Place& place, const std::string& access) {
    std::string from = access;
    for (const Value& step : place.way) {
      const std::string variable = VariableOf(step.name);
      Line("const auto* " + variable + " = " + Call(from, step.getter, from != access) + ";");
      from = variable + "->";
    }
    return from;
  }
  static std::string Call(const std::string& from, const std::string& getter, bool mayBeNull) {
    const std::string call = from + getter + "()";
    return mayBeNull ? from.substr(0, from.size() - 2) + " ? " + call + " : nullptr" : call;
  }

  // Walks a list of objects that have a value, or asks for a flag or for a child of one of several
  // types. False when it is none of these.
  bool Walk(const Place& place, const Value& value, const std::string& access) {
    const ZtPlace in = value.field.row ? value.field.row->place : ZtPlace::kOtherChildren;
    if (in == ZtPlace::kChild) {
      if (!IsFlag(*value.Items()[0].object)) return false;
      const std::string from = GoTo(place, access);
      const std::string parent = from == access ? "" : from.substr(0, from.size() - 2) + " && ";
      Open("if (" + parent + from + value.getter + "())");
      Line("std::cout << \"" + value.name + "\\n\";");
      Close();
      m_Prints += value.name + "\n";
      return true;
    }
    const auto entry = std::find_if(value.Items().begin(), value.Items().end(), HasValue);
    if (entry == value.Items().end()) return false;
    const ZtElementType& type = reflect::TypeOf(*entry->object);
    const std::string variable = VariableOf(reflect::NameOf(value.field, *entry));
    const std::string from = GoTo(place, access);
    const std::string call = Call(from, value.getter, from != access);
    const std::string typed = "<" + CppNameOf(type) + ">";
    std::string getter;
    if (in == ZtPlace::kOtherChild) {
      Open("if (const auto* " + variable + " = ztxml::As" + typed + "(" + call + "))");
      getter = Say(*entry->object, variable + "->");
    } else {
      const bool several = in == ZtPlace::kOtherChildren;
      Open("for (const auto& " + variable + " : ztxml::Each" + (several ? typed : "") + "(" + call +
           "))");
      getter = Say(*entry->object, variable + ".");
    }
    Close();
    for (const reflect::Item& item : value.Items()) {
      if (&reflect::TypeOf(*item.object) == &type) m_Prints += Printed(*item.object, getter);
    }
    return true;
  }

  std::size_t m_iIndent;
  std::string m_Code;
  std::string m_Prints;
};

}  // namespace

std::string Program(const reflect::Schema& schema, const std::string& file,
                    const std::string& text) {
  const std::vector<Root> roots = RootsOf(std::string(schema.document->info.name) + "Context");
  if (roots.empty()) return "";
  // As the program reads it: in the standard profile if that can.
  ZtSettings settings;
  settings.profile = XML_PROFILE_STANDARD;
  ztxml::Error error;
  XMLElement* namespaces = nullptr;
  XMLElement* root = ZtReadDocument(*schema.document, nullptr, settings, text.data(), text.size(),
                                    namespaces, error);
  const bool isExact = !root;
  if (isExact) {
    root = ZtReadDocument(*schema.document, nullptr, ZtSettings(), text.data(), text.size(),
                          namespaces, error);
  }
  if (!root) return "";

  const bool several = roots.size() > 1;
  const std::string variable = several ? "document" : VariableOf(reflect::ElementNameOf(*root));
  Writer body(several ? 8 : 2);
  body.Show(*root, variable + (several ? "->" : "."));
  XMLFactory::DeleteElement(root);
  XMLFactory::DeleteElement(namespaces);
  if (body.Prints().empty()) return "";

  std::string types;
  for (const Root& each : roots) types += (types.empty() ? "" : ", ") + each.type;
  std::string name = "page_" + PageOf(schema);
  name.erase(name.size() - 3);  // ".md"
  std::replace(name.begin(), name.end(), '-', '_');
  std::string page = "Reads a document from its input, such as [" + file +
                     "](../../examples/documents/" + file + "):\n\n";
  page += "<!-- program: " + name + " reads: " + file + " -->\n```cpp\n";
  page += "#include <iostream>\n#include <iterator>\n\n#include <" + roots[0].header + ">\n\n";
  page += "int main() {\n  const std::string text(std::istreambuf_iterator<char>(std::cin), {});\n";
  page += "  const auto read =" + std::string(types.size() > 64 ? "\n      " : " ") +
          "ztxml::Read<" + types + ">(text" + (isExact ? ", ztxml::Exact()" : "") + ");\n";
  page += "  if (!read) {\n    std::cerr << read.error().Text() << '\\n';\n    return 1;\n  }\n";
  if (several) {
    page += "  std::visit(\n      [](const auto& document) {\n" + body.Code() +
            "      },\n      *read);\n";
  } else {
    page += "  const " + types + "& " + variable + " = **read;\n" + body.Code();
  }
  page += "}\n```\n\n<!-- prints: " + name + " -->\n```\n" + body.Prints() + "```\n";
  return page;
}

}  // namespace docs
