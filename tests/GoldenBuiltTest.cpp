// Golden trees: what each getter of each class says of a full document, and what each setter makes
// of it.
#include "ApiScript.h"
#include "Golden.h"

namespace {

constexpr char kSource[] = "tests/Golden";

// ---- Getters ------------------------------------------------------------------------------------

struct Getter {
  const ApiTables::Types* appliesTo;
  std::string (*get)(XMLElement&);
  const char* name;
};

// What the getter says: objects by their classes, of lists how many entries they have.
template <class C, auto method>
std::string Get(XMLElement& element) {
  if constexpr (!std::is_base_of_v<XMLElement, C>) {
    return "";  // applies to no type
  } else {
    const auto value = (static_cast<C&>(element).*method)();
    using Value = std::remove_const_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, const char*>) {
      return value ? Quoted(value) : "null";
    } else if constexpr (std::is_convertible_v<Value, ZtSingleElementList*>) {
      return value ? std::to_string(value->GetCount()) + " entries" : "null";
    } else if constexpr (std::is_pointer_v<Value>) {
      return value ? value->ClassName() : "null";
    } else if constexpr (std::is_class_v<Value>) {  // what a public member has, if it is stated
      return value ? std::to_string(static_cast<long long>(*value)) : "none";
    } else {
      return std::to_string(static_cast<long long>(value));
    }
  }
}
#define ZT_GETTER(C, method) {&ApiTables::kDerive<C>, &Get<C, &C::method>, #method},
const Getter kGetters[] = {ZT_API_GETTERS(ZT_GETTER) ZT_API_MEMBERS(ZT_GETTER)};
#undef ZT_GETTER

std::string TellGetters(XMLElement& object, unsigned type) {
  std::string text;
  for (const Getter& getter : kGetters) {
    if (!(*getter.appliesTo)[type]) continue;
    text +=
        object.ClassName() + std::string(".") + getter.name + "(): " + getter.get(object) + '\n';
  }
  return text;
}

// ---- Setters ------------------------------------------------------------------------------------

// Something that a setter is called with.
struct Given {
  std::string label;
  ApiTables::Value value = {};
};

// A list that has taken `items`.
template <class Item>
ZtSingleElementList* ListOf(std::initializer_list<Item*> items) {
  ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
  for (Item* item : items) list->Add(item);
  return list;
}

XMLElement* MakeForeign() {
  zt_string* foreign = ZtCreate<zt_string>(kSource);
  foreign->setValue("a foreign object");
  return foreign;
}

// Sets `given` to the value number `at` for the setter, from 0 on; false after the last.
bool Give(const ApiTables::Setter& setter, unsigned at, Given& given) {
  static constexpr const char* kTexts[] = {nullptr, "", "a\"<&>b"};
  static constexpr unsigned kNumbers[] = {0, 1, 7, 0xFFFFFFFF};
  const auto pair = [](const char* name) {
    return zt_xml_common_methods::CreateAttribute(name, "given");
  };
  const bool attributes = std::strstr(setter.name, "Attribute") != nullptr;
  ApiTables::Value& value = given.value;
  switch (setter.kind) {
    case ApiTables::Kind::kText:
      if (at >= std::size(kTexts)) return false;
      value.text = kTexts[at];
      given.label = value.text ? Quoted(value.text) : "null";
      return true;
    case ApiTables::Kind::kNumber:
      if (at >= std::size(kNumbers)) return false;
      value.number = kNumbers[at];
      given.label = std::to_string(value.number);
      return true;
    case ApiTables::Kind::kAttribute:
      if (at == 0) value.attribute = pair("given");
      if (at == 1) value.attribute = pair("extra");
      if (at == 2) value.attribute = pair("id");
      given.label = "a pair named " + std::string(at == 0 ? "given" : at == 1 ? "extra" : "id");
      return at < 3;
    case ApiTables::Kind::kList:
      given.label = at == 0   ? "null"
                    : at == 1 ? "an empty list"
                    : at == 2 ? "a list with others"
                              : "a list with an empty string";
      if (at == 1) value.list = ListOf<XMLElement>({});
      if (at == 2) {
        value.list = attributes ? ListOf<XMLAttribute>({pair("a"), pair("id"), pair("a")})
                                : ListOf<XMLElement>({MakeForeign()});
      }
      if (at == 3 && !attributes) value.list = ListOf<XMLElement>({ZtCreate<zt_string>(kSource)});
      return at < (attributes ? 3 : 4);
    case ApiTables::Kind::kChild:
      given.label = at == 0 ? "null" : "an object of another class";
      if (at == 1) value.child = MakeForeign();
      if (at == 2) {
        unsigned type = 0;
        while (!(*setter.child)[type]) ++type;
        value.child = ApiTables::kTypes[type]->Create(kSource);
        given.label = "an empty object";
      }
      return at < 3;
  }
  return false;
}

// What a setter has refused stays the caller's.
void Drop(const ApiTables::Value& value) {
  XMLFactory::DeleteElement(value.child);
  if (value.attribute) ZtRelease(value.attribute);
}

// Calls the setter and tells what it returns and which fields it changes.
std::string TellSetter(XMLElement& object, const ApiTables::Setter& setter, const Given& given) {
  const Lines before = FieldsOf(object);
  const int result = setter.set(object, given.value);
  if (!result) Drop(given.value);
  std::string text = object.ClassName() + std::string(".") + setter.name + '(' + given.label +
                     "): " + std::to_string(result);
  for (const std::string& change : Changes(before, FieldsOf(object))) text += ", " + change;
  return text + '\n';
}

// The first object of each class in a tree, by the class's number in ApiTables::kTypes.
std::map<unsigned, XMLElement*> ByClass(const XMLElement& root) {
  std::map<unsigned, XMLElement*> first;
  for (XMLElement* object : ObjectsOf(root)) {
    for (unsigned type = 0; type < ApiTables::kTypeCount; ++type) {
      if (ZtIsA(*object, *ApiTables::kTypes[type])) first.insert({type, object});
    }
  }
  return first;
}

// Tells what is written of a tree.
struct Written {
  Lines text, log;

  Written(Schema& schema, XMLElement* root) {
    const LogCapture capture;
    const std::string written = schema.Write(root);
    text = LinesOf(written);
    log = Told(capture, "", written);
  }
};

// Tells of an object: its getters, its text alone, and what each setter changes in the full
// document.
std::string TellObject(Schema& schema, const std::string& document, unsigned type) {
  const auto full = schema.Read<XMLElement>(document);
  XMLElement* object = ByClass(*full).at(type);
  const auto again = [&] {
    schema.Write(full.get());
  };  // so that the next call logs the release of this text
  std::string text = TellGetters(*object, type);
  again();
  if (schema.writer() && object != full.get()) {
    text += object->ClassName() + std::string(" alone:\n") +
            Short("  ", Difference({}, Written(schema, object).text), 0);
    again();
  }
  const Written whole(schema, full.get());
  for (const ApiTables::Setter& setter : kApiSetters) {
    if (!(*setter.appliesTo)[type]) continue;
    Given given;
    for (unsigned at = 0; Give(setter, at, given); ++at, given = {}) {
      const auto root = schema.Read<XMLElement>(document);
      text += TellSetter(*ByClass(*root).at(type), setter, given);
      again();
      const Written now(schema, root.get());
      const bool lost = now.text != whole.text && now.text == Lines{"(null)"};
      text += lost ? "  not written\n" : Short("  ", Difference(whole.text, now.text), 2);
      text += Short("  log ", Difference(whole.log, now.log), 0);
    }
  }
  return text;
}

TEST(GoldenBuilt, ByAccessors) {
  GoldenFolder golden("accessors");
  std::set<unsigned> everywhere;
  for (int i = 0; i < XML_SCHEMA_END; ++i) {
    const XMLSchemaInfo* info = XMLFactory::getSchemaInfo(static_cast<eXMLSchemaID>(i));
    if (!info) continue;
    std::set<unsigned> told;  // each class once
    std::string text;
    for (const std::filesystem::path& input : FullDocuments(*info)) {
      const std::string document = ReadFile(input);
      BoundSchema schema(info->id, document);
      const auto root = schema.Read<XMLElement>(document);
      for (const auto& [type, object] : ByClass(*root)) {
        if (told.insert(type).second) text += TellObject(schema, document, type);
        everywhere.insert(type);
      }
    }
    golden.Expect(std::string(info->name) + ".txt", text);
  }
  // Classes that are in no document.
  std::string text;
  for (unsigned type = 0; type < ApiTables::kTypeCount; ++type) {
    if (everywhere.count(type)) continue;
    const auto make = [&] { return Tree<XMLElement>(ApiTables::kTypes[type]->Create(kSource)); };
    text += TellGetters(*make(), type);
    for (const ApiTables::Setter& setter : kApiSetters) {
      if (!(*setter.appliesTo)[type]) continue;
      Given given;
      for (unsigned at = 0; Give(setter, at, given); ++at, given = {}) {
        text += TellSetter(*make(), setter, given);
      }
    }
  }
  golden.Expect("others.txt", text);
}

}  // namespace
