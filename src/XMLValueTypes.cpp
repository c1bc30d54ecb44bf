#include "XMLValueTypes.h"

#include "binding/ZtBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLValueTypes");
}  // namespace

const ZtElementType zt_string::kType = ZtTypeOf<zt_string>("zt_string", "string_class", kFamily);
const ZtElementType zt_empty_element_type::kType =
    ZtTypeOf<zt_empty_element_type>("zt_empty_element_type", "empty_element", kFamily);

zt_string* zt_string::From(XMLElement* element) { return ZtAs<zt_string>(element); }

int zt_empty_element_type::setValue(const char* value) {
  m_iPresent = value ? 1 : 0;
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

ZtSingleElementList* zt_xml_common_methods::CreateElementList() {
  return ZtCreate<ZtSingleElementList>("src/XMLList");
}

void zt_xml_common_methods::DeleteElementList(ZtSingleElementList* list) {
  if (!list) ZtSingleElementList::HeadOf(list);  // for its warning
  ZtChildList owner;
  owner.Set(list);
}
