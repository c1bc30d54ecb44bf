#include "ztxml/XMLValueTypes.h"

#include "binding/ZtBinding.h"

namespace {
constexpr char kSource[] = "src/XMLValueTypes";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);
}  // namespace

const ZtElementType zt_string::kType = {ZtTypeOf<zt_string>("zt_string", "string_class", kFamily)};
const ZtElementType zt_empty_element_type::kType = {
    ZtTypeOf<zt_empty_element_type>("zt_empty_element_type", "empty_element", kFamily)};

zt_string* zt_string::From(XMLElement* element) { return ZtAs<zt_string>(element); }

int zt_empty_element_type::setValue(const char* value) {
  m_iPresent.Set(value ? 1 : 0);
  return m_Value.Assign(value);
}

const char* zt_AttributeValuePair::ClassName() const { return "zt_AttributeValuePair"; }
const char* zt_AttributeValuePair::BaseClassName() const { return "XMLAttribute"; }
const char* zt_AttributeValuePair::ElementName() const { return "AttributeValuePair"; }
int zt_AttributeValuePair::ReservedHook() { return 0; }

zt_AttributeValuePair* zt_AttributeValuePair::From(XMLAttribute* attribute) {
  const char* className = attribute ? attribute->ClassName() : nullptr;
  const bool pair = className && __strcmp(className, "zt_AttributeValuePair") == 0;
  return pair ? static_cast<zt_AttributeValuePair*>(attribute) : nullptr;
}

struct ZtValueMaker {
  // `made` with its texts, or null when one was lost.
  template <class T>
  static T* Whole(T* made, bool whole) {
    if (made && whole) return made;
    ZtRelease(made);
    return nullptr;
  }

  static zt_string* String(const ZtSource& source, ZtPiece text) {
    auto* made = ZtCreate<zt_string>(source);
    return Whole(made, made && made->m_Value.Set(text, source.arena));
  }
  static zt_empty_element_type* Flag(const ZtSource& source, ZtPiece name) {
    auto* made = ZtCreate<zt_empty_element_type>(source);
    if (made) made->m_iPresent.Set(1);
    return Whole(made, made && name.text && made->m_Value.Set(name, source.arena));
  }
  static zt_AttributeValuePair* Pair(const ZtSource& source, ZtPiece name, ZtPiece value,
                                     ZtPiece space) {
    auto* made = ZtCreate<zt_AttributeValuePair>(source);
    if (made) made->m_Namespace.Refer(space);
    return Whole(made, made && made->m_Name.Set(name, source.arena) &&
                           made->m_Value.Set(value, source.arena));
  }
};

zt_string* ZtMakeString(const ZtSource& source, ZtPiece text) {
  return ZtValueMaker::String(source, text);
}
zt_empty_element_type* ZtMakeFlag(const ZtSource& source, ZtPiece name) {
  return ZtValueMaker::Flag(source, name);
}
zt_AttributeValuePair* ZtMakePair(const ZtSource& source, ZtPiece name, ZtPiece value,
                                  ZtPiece space) {
  return ZtValueMaker::Pair(source, name, value, space);
}

zt_string* zt_xml_common_methods::CreateString(const char* text) {
  return ZtMakeString(kSource, text);
}

zt_AttributeValuePair* zt_xml_common_methods::CreateAttribute(const char* name, const char* value) {
  return ZtMakePair(kSource, name, value);
}

ZtSingleElementList* zt_xml_common_methods::CreateElementList() {
  return ZtCreate<ZtSingleElementList>("src/XMLList");
}

void zt_xml_common_methods::DeleteElementList(ZtSingleElementList* list) {
  if (!list) ZtSingleElementList::HeadOf(list);  // for its warning
  ZtChildList owner;
  owner.Set(list);
}
