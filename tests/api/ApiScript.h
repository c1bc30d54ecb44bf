// Trees as callers build them, by a script of bytes: every element of every document, every setter,
// children and lists replaced, hooks called, allocations failing, and any of it written by any
// marshaller at any time.
#ifndef ZTXML_TESTS_API_APISCRIPT_H
#define ZTXML_TESTS_API_APISCRIPT_H

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include "ApiTable.h"
#include "Objects.h"
#include "Workers.h"
#include "base/ZtMemory.h"
#include "binding/ZtBinding.h"
#include "binding/ZtNames.h"
#include "ztxml/ZtMembers.h"
#include "ztxml/ztHostPlatform.h"

/// A factory of class `C`, prepared so that all its methods can make something.
template <class C>
struct ApiFactory : C {
  ApiFactory() {
    if constexpr (std::is_same_v<C, CommunicationBarringDataBinder>) {
      this->setCBType(XML_COMMUNICATION_BARRING_INCOMING);
    }
    if constexpr (std::is_same_v<C, GruuDataBinder>) this->setGruuType("pub-gruu");
  }
};
/// ZtPolicyDataBinder is abstract: one of its two factories is made instead.
template <>
struct ApiFactory<ZtPolicyDataBinder> : CommunicationDiversionDataBinder {};

/// The classes, factories and setters of the public headers.
class ApiTables {
 public:
#define ZT_TYPE(C) &C::kType,
#define ZT_DERIVES(C) __is_base_of(Base, C),  // the library's would take long to compile
  static constexpr const ZtElementType* kTypes[] = {ZT_API_ELEMENTS(ZT_TYPE)};
  static constexpr unsigned kTypeCount = sizeof(kTypes) / sizeof(*kTypes);
  /// Which of the types derive from `Base`.
  using Types = std::array<bool, kTypeCount>;
  template <class Base>
  static constexpr Types kDerive = {ZT_API_ELEMENTS(ZT_DERIVES)};
#undef ZT_TYPE
#undef ZT_DERIVES

  struct Factory {
    XMLElement* (*make)();
    const ZtElementType* made;  // null: one of the roots
    const char* name;
  };

  enum class Kind { kText, kNumber, kList, kAttribute, kChild };
  struct Value {
    const char* text;
    unsigned number;
    ZtSingleElementList* list;
    zt_AttributeValuePair* attribute;
    XMLElement* child;
  };
  struct Setter {
    const Types* appliesTo;
    const Types* child;
    Kind kind;
    int (*set)(XMLElement&, const Value&);
    const char* name;
  };

  template <class C, auto method>
  struct Method;

  template <class C, class Owner, class Made, Made* (Owner::*method)()>
  struct Method<C, method> {
    static constexpr Factory Entry(const char* name) { return {&Make, MadeType(), name}; }

   private:
    static XMLElement* Make() { return (ApiFactory<C>().*method)(); }
    static constexpr const ZtElementType* MadeType() {
      if constexpr (std::is_same_v<Made, XMLObject>) {
        return nullptr;
      } else {
        return &Made::kType;
      }
    }
  };

  template <class C, class Owner, class Argument, int (Owner::*method)(Argument)>
  struct Method<C, method> {
    static constexpr Setter Entry(const char* name) { return By<C, Argument, Method>(name); }
    static int Call(C& self, Argument value) { return (self.*method)(value); }
  };

  /// A public member that is set, with what its Set takes.
  template <class C, auto member>
  struct Member {
    static constexpr Setter Entry(const char* name) { return Of(name, member); }
    template <class Argument>
    static int Call(C& self, Argument value) {
      return (self.*member).Set(value) ? 1 : 0;
    }

   private:
    template <class Owner>
    static constexpr Setter Of(const char* name, ZtTextMember Owner::* /*of texts*/) {
      return By<C, const char*, Member>(name);
    }
    template <class Owner, class Value>
    static constexpr Setter Of(const char* name, ZtNumberMember<Value> Owner::* /*of numbers*/) {
      return By<C, Value, Member>(name);
    }
    template <class Owner, class T>
    static constexpr Setter Of(const char* name, ZtChildMember<T> Owner::* /*of children*/) {
      return By<C, T*, Member>(name);
    }
    template <class Owner, class T>
    static constexpr Setter Of(const char* name, ZtListMember<T> Owner::* /*of lists*/) {
      return By<C, ZtSingleElementList*, Member>(name);
    }
  };
  /// A public list that is added to.
  template <class C, auto list>
  struct List {
    static constexpr Setter Entry(const char* name) { return Of(name, list); }
    template <class Argument>
    static int Call(C& self, Argument value) {
      return (self.*list).Add(value) ? 1 : 0;
    }

   private:
    template <class Owner, class T>
    static constexpr Setter Of(const char* name, ZtListMember<T> Owner::* /*of children*/) {
      return By<C, T*, List>(name);
    }
  };

 private:
  // A setter of class `C`, called by `Caller`.
  template <class C, class Argument, class Caller>
  static constexpr Setter By(const char* name) {
    return {&kDerive<C>, &kDerive<std::remove_pointer_t<Argument>>, KindOf<Argument>(),
            &Set<C, Argument, Caller>, name};
  }
  template <class T>
  static constexpr Kind KindOf() {
    if (std::is_same_v<T, const char*>) return Kind::kText;
    if (!std::is_pointer_v<T>) return Kind::kNumber;
    if (std::is_same_v<T, ZtSingleElementList*>) return Kind::kList;
    return std::is_same_v<T, XMLAttribute*> ? Kind::kAttribute : Kind::kChild;
  }
  template <class C, class Argument, class Caller>
  static int Set(XMLElement& element, const Value& value) {
    constexpr Kind kKind = KindOf<Argument>();
    if constexpr (!std::is_base_of_v<XMLElement, C>) {  // no method of an element
      return 0;
    } else {
      auto& self = static_cast<C&>(element);
      if constexpr (kKind == Kind::kText) return Caller::Call(self, value.text);
      if constexpr (kKind == Kind::kNumber) {
        return Caller::Call(self, static_cast<Argument>(value.number));
      }
      if constexpr (kKind == Kind::kList) return Caller::Call(self, value.list);
      if constexpr (kKind == Kind::kAttribute) return Caller::Call(self, value.attribute);
      if constexpr (kKind == Kind::kChild) {
        return Caller::Call(self, static_cast<Argument>(value.child));
      }
    }
  }
};

#define ZT_FACTORY(C, method) ApiTables::Method<C, &C::method>::Entry(#C "::" #method),
#define ZT_SETTER(C, method) ApiTables::Method<C, &C::method>::Entry(#method),
#define ZT_MEMBER(C, member) ApiTables::Member<C, &C::member>::Entry(#member ".Set"),
#define ZT_LIST(C, list) ApiTables::List<C, &C::list>::Entry(#list ".Add"),
inline constexpr ApiTables::Factory kApiFactories[] = {ZT_API_FACTORIES(ZT_FACTORY)};
inline constexpr ApiTables::Setter kApiSetters[] = {
    ZT_API_SETTERS(ZT_SETTER) ZT_API_MEMBERS(ZT_MEMBER) ZT_API_LISTS(ZT_LIST)};
#undef ZT_FACTORY
#undef ZT_SETTER
#undef ZT_MEMBER
#undef ZT_LIST

/// Builds trees as its bytes say.
class ApiScript {
 public:
  ApiScript(const std::uint8_t* data, std::size_t size) : m_pData(data), m_iSize(size) {}
  ~ApiScript() {
    for (XMLElement* root : m_Roots) XMLFactory::DeleteElement(root);
    for (XMLContext* context : m_Contexts) XMLFactory::deleteContext(context);
  }
  ApiScript(const ApiScript&) = delete;
  ApiScript& operator=(const ApiScript&) = delete;

  /// What was broken, empty when nothing was.
  std::string Run() {
    if (Below(4) == 0) {
      m_pNamespaces = Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL)
                          .Read<XMLObject>(
                              "<a xmlns:a='http://uri.etsi.org/ngn/params/xml/simservs/xcap'"
                              " xmlns:b='urn:ietf:params:xml:ns:common-policy'/>");
    }
    while (m_iSize && m_Broken.empty()) Step();
    zthost::FailAllocation(0);
    for (std::size_t i = 0; i < m_Roots.size() && m_Broken.empty(); ++i) Write(*m_Roots[i]);
    return m_Broken;
  }

 private:
  using Types = ApiTables::Types;
  static constexpr unsigned kTypeCount = ApiTables::kTypeCount;

  // The setters of one type.
  static const std::vector<const ApiTables::Setter*>& SettersOf(unsigned type) {
    static const auto kSetters = [] {
      std::array<std::vector<const ApiTables::Setter*>, kTypeCount> setters;
      for (const ApiTables::Setter& setter : kApiSetters) {
        for (unsigned i = 0; i < kTypeCount; ++i) {
          if ((*setter.appliesTo)[i]) setters[i].push_back(&setter);
        }
      }
      return setters;
    }();
    return kSetters[type];
  }

  // ---- What the bytes say -----------------------------------------------------------------------

  unsigned Below(unsigned bound) {
    if (!m_iSize) return 0;
    --m_iSize;
    return *m_pData++ % bound;
  }

  const char* Text() {
    const unsigned kind = Below(16);
    if (kind == 0) return nullptr;
    m_Text.clear();
    if (kind < 8) {
      m_Text = ZtName(static_cast<e_XmlStrRef>(Below(256)));
    } else if (kind < 15) {
      for (unsigned n = Below(12); n; --n) m_Text += static_cast<char>(1 + Below(255));
    } else {
      m_Text.assign(Below(256) * 16, 'x');
    }
    return m_Text.c_str();
  }

  zt_AttributeValuePair* Attribute() {
    const char* name = Text();
    const std::string copy = name ? name : "";
    const char* value = Text();
    return zt_xml_common_methods::CreateAttribute(name ? copy.c_str() : nullptr, value);
  }

  void Step() {
    const unsigned kind = Below(16);
    const std::size_t root = m_Roots.empty() ? 0 : Below(256) % m_Roots.size();
    if (m_Roots.empty() || kind == 0) {
      const auto& factories = kApiFactories;
      Take(factories[Below(256) % std::size(factories)].make());
      return;
    }
    XMLElement& self = Any(*m_Roots[root]);
    if (kind == 1) {
      zthost::FailAllocation(Below(40), Below(2) != 0);
    } else if (kind == 2) {
      zthost::FailAllocation(0);
    } else if (kind == 3) {
      Write(self);
    } else if (kind == 4) {
      Hooks(self);
    } else {
      const auto& setters = SettersOf(TypeOf(self));
      if (!setters.empty()) Call(m_Roots[root], self, *setters[Below(256) % setters.size()]);
    }
  }

  void Call(const XMLElement* root, XMLElement& self, const ApiTables::Setter& setter) {
    ApiTables::Value value = {};
    switch (setter.kind) {
      case ApiTables::Kind::kText:
        value.text = Text();
        setter.set(self, value);
        break;
      case ApiTables::Kind::kNumber:
        value.number = Below(256) ? Below(6) : ~0U;
        setter.set(self, value);
        break;
      case ApiTables::Kind::kAttribute:
        value.attribute = Attribute();
        if (!setter.set(self, value)) ZtRelease(value.attribute);
        break;
      case ApiTables::Kind::kList:
        GiveList(root, self, setter);
        break;
      case ApiTables::Kind::kChild:
        GiveChild(root, self, setter);
    }
  }

  // ---- Objects ----------------------------------------------------------------------------------

  XMLElement& Any(const XMLElement& root) {
    const std::vector<XMLElement*> objects = ObjectsOf(root);
    return *objects[Below(256) % objects.size()];
  }
  // The index into ApiTables::kTypes.
  static unsigned TypeOf(const XMLElement& element) {
    unsigned type = 0;
    while (type < kTypeCount && !ZtIsA(element, *ApiTables::kTypes[type])) ++type;
    return type;
  }

  void Take(XMLElement* element) {
    if (!element) return;
    m_Roots.push_back(element);
    if (TypeOf(*element) == kTypeCount) {
      m_Broken = std::string("a factory makes what is no element: ") + element->ClassName();
    }
  }

  // A root of one of `types` that is not `other`, made if there is none; null when out of memory.
  XMLElement* Free(const XMLElement* other, const Types& types) {
    for (std::size_t n = m_Roots.size(), i = Below(256); n; --n, ++i) {
      XMLElement* const root = m_Roots[i % m_Roots.size()];
      if (root != other && types[TypeOf(*root)]) return root;
    }
    for (unsigned n = 0, i = Below(256); n < kTypeCount; ++n, ++i) {
      if (!types[i % kTypeCount]) continue;
      XMLElement* const made = ApiTables::kTypes[i % kTypeCount]->Create("tests/ApiScript");
      Take(made);
      return made;
    }
    return nullptr;
  }
  void IsTaken(XMLElement* root) {
    m_Roots.erase(std::remove(m_Roots.begin(), m_Roots.end(), root), m_Roots.end());
  }

  void GiveChild(const XMLElement* root, XMLElement& self, const ApiTables::Setter& setter) {
    ApiTables::Value value = {};
    const unsigned which = Below(8);
    if (which == 7) {  // one that has an owner
      XMLElement* const other = m_Roots[Below(256) % m_Roots.size()];
      value.child = &Any(*other);
      if (value.child == other || value.child == &self) return;
      if (!(*setter.child)[TypeOf(*value.child)]) return;
      const int taken = setter.set(self, value);
      if (taken && *setter.name == 'a') m_Broken = "an object is taken that has an owner";
      return;
    }
    if (which) value.child = Free(root, *setter.child);
    if (setter.set(self, value)) IsTaken(value.child);
  }

  void GiveList(const XMLElement* root, XMLElement& self, const ApiTables::Setter& setter) {
    ApiTables::Value value = {};
    if (Below(4)) value.list = zt_xml_common_methods::CreateElementList();
    const bool attributes =
        std::strstr(setter.name, "Attribute") || std::strstr(setter.name, "NameSpaceInfo");
    for (unsigned n = value.list ? Below(4) : 0; n; --n) {
      if (attributes) {
        XMLAttribute* attribute = Attribute();
        if (attribute && !value.list->Add(attribute)) ZtRelease(attribute);
        continue;
      }
      XMLElement* const child = Free(root, ApiTables::kDerive<XMLElement>);
      if (child && value.list->Add(child)) IsTaken(child);
    }
    if (!setter.set(self, value)) m_Broken = "a list is not taken";
  }

  // ---- The library at work ----------------------------------------------------------------------

  void Hooks(XMLElement& element) {
    const char* name = Text();
    std::string copy = name && Below(2) ? "/" : "";
    if (name) copy += name;
    const char* value = Text();
    std::string text = value ? value : "";
    char* given = name ? copy.data() : nullptr;
    if (Below(2)) {
      element.ProcessUnMarshallAttribute(given, value ? text.data() : nullptr, nullptr);
    } else {
      element.ProcessUnMarshall(given, value ? text.data() : nullptr, nullptr);
    }
  }

  void Write(XMLElement& element) {
    for (std::size_t id = 0; id < m_Contexts.size(); ++id) {
      if (!m_Contexts[id]) {
        m_Contexts[id] = XMLFactory::newInstance(static_cast<eXMLSchemaID>(id));
        if (m_Contexts[id] && m_pNamespaces)
          m_Contexts[id]->SetNamespaceBinder(m_pNamespaces.get());
      }
      XMLMarshaller* writer = m_Contexts[id] ? m_Contexts[id]->createMarshaller() : nullptr;
      const char* text = writer ? writer->Marshall(&element) : nullptr;
      if (!text) continue;
      const std::string first = text;
      text = writer->Marshall(&element);
      if (text && first != text) m_Broken = "written again it differs:\n" + first + "\n" + text;
    }
  }

  const std::uint8_t* m_pData;
  std::size_t m_iSize;
  std::string m_Text;
  std::vector<XMLElement*> m_Roots;  // of the trees that are the script's
  std::array<XMLContext*, XML_SCHEMA_END> m_Contexts = {};
  Tree<XMLObject> m_pNamespaces;
  std::string m_Broken;
};

#endif  // ZTXML_TESTS_API_APISCRIPT_H
