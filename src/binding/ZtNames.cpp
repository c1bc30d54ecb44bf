#include "binding/ZtNames.h"

#include <cstring>

namespace {

// Sizes known at compile time, so that most comparisons end at the size.
constexpr unsigned char kSizes[] = {
#define ZT_NAME(id, text) sizeof(text) - 1,
#include "XMLCommonNames.inc"
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

constexpr char kExtraNames[][32] = {
#define ZT_NAME(id, text) text,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

}  // namespace

const char* ZtNameId::Text() const {
  return m_Id < kXmlStrRefCount
             ? zt_xml_common_array_definition::getStringName(static_cast<e_XmlStrRef>(m_Id))
             : kExtraNames[m_Id - kXmlStrRefCount];
}

bool ZtNameId::Is(const char* text, std::size_t size) const {
  return kSizes[m_Id] == size && std::memcmp(Text(), text, size) == 0;
}
