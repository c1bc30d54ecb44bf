#include "Accessors.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "ApiScript.h"

namespace docs {

namespace {

struct ClassHeader {
  const char* className;
  const char* header;
};
struct Getter {
  const ApiTables::Types* appliesTo;
  const char* name;
  const char* given;
};
struct Optional {
  const ApiTables::Types* appliesTo;
  const char* setter;
  const char* name;
};
struct Enumerator {
  const char* enumeration;
  const char* name;
  unsigned value;
};

struct ContextRoot {
  const char* context;
  Root root;
};

#include "Headers.inc"

#define ZT_GETTER(C, method, given) {&ApiTables::kDerive<C>, method, given},
constexpr Getter kGetters[] = {ZT_DOC_GETTERS(ZT_GETTER)};
#undef ZT_GETTER

#define ZT_OPTIONAL(C, setter, method) {&ApiTables::kDerive<C>, #setter, #method},
constexpr Optional kOptionals[] = {ZT_API_OPTIONALS(ZT_OPTIONAL)};
#undef ZT_OPTIONAL

#define ZT_CLASS(C) #C,
constexpr const char* kClasses[] = {ZT_API_ELEMENTS(ZT_CLASS)};
#undef ZT_CLASS

struct Delete {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
using Object = std::unique_ptr<XMLElement, Delete>;

Object Make(const ZtElementType& type) { return Object(type.Create("docs/Accessors")); }

// The index of a type among those that have accessors, kTypeCount for none.
unsigned IndexOf(const ZtElementType& type) {
  unsigned index = 0;
  while (index < ApiTables::kTypeCount &&
         std::strcmp(ApiTables::kTypes[index]->className, type.className) != 0) {
    ++index;
  }
  return index;
}

constexpr char kText[] = "value";
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// What stands in one row of an object, to be compared: a pointer or a number.
unsigned long long StateOf(const XMLElement& object, const reflect::Field& field) {
  const auto address = [](const void* pointer) {
    return static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(pointer));
  };
  if (!field.row) {
    if (field.items.empty()) return 0;
    return address(field.items[0].object ? static_cast<const void*>(field.items[0].object)
                                         : field.items[0].text);
  }
  const ZtField& row = *field.row;
  switch (field.place) {
    case ZtPlace::kChild:
      return address(row.Child(object).Get());
    case ZtPlace::kChildren:
    case ZtPlace::kOtherChildren:
    case ZtPlace::kTextElements:
    case ZtPlace::kOwnWords:
      return address(row.Children(object).Get());
    case ZtPlace::kOtherAttributes:
      return address(row.Attributes(object).Get());
    default:
      break;
  }
  switch (field.value) {
    case ZtValue::kText:
      return address(row.Text(object).Get());
    case ZtValue::kNumber64:
      return row.Number64(object);
    default:
      return row.Number(object);
  }
}

// A list with one entry of the kind that the setter's name tells.
ZtSingleElementList* MakeList(const char* setter) {
  ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
  const bool attributes = std::strstr(setter, "Attribute") || std::strstr(setter, "NameSpaceInfo");
  if (attributes) {
    XMLAttribute* pair = zt_xml_common_methods::CreateAttribute(kText, kText);
    list->Add(pair);
  } else {
    XMLElement* text = zt_xml_common_methods::CreateString(kText);
    list->Add(text);
  }
  return list;
}

// Calls the setter; what it does not take is freed.
void Call(const ApiTables::Setter& setter, XMLElement& object, unsigned number) {
  ApiTables::Value value = {};
  value.text = kText;
  value.number = number;
  switch (setter.kind) {
    case ApiTables::Kind::kList:
      value.list = MakeList(setter.name);
      break;
    case ApiTables::Kind::kAttribute:
      value.attribute = zt_xml_common_methods::CreateAttribute(kText, kText);
      break;
    case ApiTables::Kind::kChild:
      for (unsigned i = 0; i < ApiTables::kTypeCount && !value.child; ++i) {
        if ((*setter.child)[i]) value.child = Make(*ApiTables::kTypes[i]).release();
      }
      break;
    default:
      break;
  }
  const bool taken = setter.set(object, value) != 0;
  if (taken) return;
  XMLFactory::DeleteElement(value.child);
  ZtRelease(value.attribute);
}

// The field that a setter changes, kNone when it changes none.
std::size_t FieldOf(const ApiTables::Setter& setter, const ZtElementType& type) {
  for (const unsigned number : {1U, 30U, 0U}) {  // a range or a default may stand in the way
    const Object object = Make(type);
    const auto before = reflect::FieldsOf(*object);
    std::vector<unsigned long long> states;
    states.reserve(before.size());
    for (const reflect::Field& field : before) states.push_back(StateOf(*object, field));
    Call(setter, *object, number);
    const auto after = reflect::FieldsOf(*object);
    for (std::size_t i = 0; i < after.size(); ++i) {
      if (StateOf(*object, after[i]) != states[i]) return i;
    }
    if (setter.kind != ApiTables::Kind::kNumber) break;
  }
  return kNone;
}

// The public member that `setter` sets or adds to, "" when it is a function of the class.
std::string MemberOf(const std::string& setter) {
  return setter.substr(0, setter.find('.') == std::string::npos ? 0 : setter.find('.'));
}

const Getter* GetterOf(const std::string& setter, unsigned type) {
  std::string name = MemberOf(setter);
  // One getter has another name than its setter.
  if (name.empty()) name = setter == "setParmList" ? "getParamList" : "get" + setter.substr(3);
  for (const Getter& getter : kGetters) {
    if (name == getter.name && (*getter.appliesTo)[type]) return &getter;
  }
  return nullptr;
}

}  // namespace

std::vector<Accessors> AccessorsOf(const ZtElementType& type) {
  std::vector<Accessors> accessors(reflect::FieldsOf(type).size());
  const unsigned index = IndexOf(type);
  if (index == ApiTables::kTypeCount) return accessors;
  for (const ApiTables::Setter& setter : kApiSetters) {
    if (!(*setter.appliesTo)[index]) continue;
    const std::size_t field = FieldOf(setter, type);
    if (field == kNone) continue;
    Accessors& own = accessors[field];
    const std::string member = MemberOf(setter.name);
    if (const Getter* getter = GetterOf(setter.name, index)) {
      own.getter = getter->name;
      own.given = getter->given;
      if (member.empty()) own.names.push_back(own.getter);
    }
    own.names.push_back(member.empty() ? setter.name : member);
    if (!member.empty() && setter.kind == ApiTables::Kind::kNumber) own.optional = member;
  }
  for (Accessors& own : accessors) {  // getters, setters, adders
    const auto rank = [](const std::string& name) {
      return name[0] == 'g' ? 0 : name[0] == 's' ? 1 : 2;
    };
    std::stable_sort(own.names.begin(), own.names.end(),
                     [&](const std::string& a, const std::string& b) { return rank(a) < rank(b); });
    // What tells whether a value is stated, after the getter.
    for (const Optional& optional : kOptionals) {
      const bool pair = own.names.size() == 2 && own.names[1] == optional.setter;
      if (!pair || !(*optional.appliesTo)[index]) continue;
      own.optional = optional.name;
      own.names.insert(own.names.end() - 1, optional.name);
    }
  }
  return accessors;
}

std::string CppNameOf(const ZtElementType& type) {
  const unsigned index = IndexOf(type);
  return index == ApiTables::kTypeCount ? type.className : kClasses[index];
}

std::string HeaderOf(const std::string& className) {
  for (const ClassHeader& entry : kClassHeaders) {
    if (className == entry.className) return entry.header;
  }
  return "";
}

std::string EnumeratorOf(const std::string& enumeration, unsigned value) {
  for (const Enumerator& entry : kEnumerators) {
    if (enumeration == entry.enumeration && value == entry.value) return entry.name;
  }
  return "";
}

std::vector<std::string> FactoriesOf(const ZtElementType& type) {
  std::vector<std::string> names;
  for (const ApiTables::Factory& factory : kApiFactories) {
    if (factory.made && std::strcmp(factory.made->className, type.className) == 0) {
      names.emplace_back(factory.name);
    }
  }
  return names;
}

std::vector<Root> RootsOf(const std::string& context) {
  std::vector<Root> roots;
  for (const ContextRoot& entry : kContextRoots) {
    if (context == entry.context) roots.push_back(entry.root);
  }
  return roots;
}

std::string RootFactoryOf(const ZtElementType& type) {
  for (const ApiTables::Factory& factory : kApiFactories) {
    if (factory.made) continue;
    const Object root(factory.make());
    if (root && ZtIsA(*root, type)) {
      const std::string name = factory.name;
      return name.substr(0, name.find("::"));
    }
  }
  return "";
}

}  // namespace docs
