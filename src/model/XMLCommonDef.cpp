#include "ztxml/XMLCommonDef.h"

#include "base/ZtMemory.h"

char zt_xml_common_array_definition::arrXmlStrRef[XML_STR_ZT_COUNT][kRowSize] = {
#define ZT_NAME(id, text) text,
#include "ztxml/XMLCommonNames.inc"
#undef ZT_NAME
};

// Not inline: a program that refers to the table itself would get a copy of all its rows.
char* zt_xml_common_array_definition::getStringName(e_XmlStrRef id) { return arrXmlStrRef[id]; }

std::atomic<zt_xml_common_array_definition*> zt_xml_common_array_definition::m_pXmlStrRef{nullptr};

static_assert(XML_STR_ZT_COUNT == 267, "row numbers are shared with the callers");

namespace {
constexpr char kSource[] = "src/XMLCommonDef";
constexpr int kCreateLine = 304;        // the memory log's readers know the instance by this line
constexpr std::size_t kLoggedSize = 1;  // and by this size, as it has no data
}  // namespace

// Marshallers on several threads come here at once, so the instance is exchanged atomically and
// the loser of a race deletes its own.
zt_xml_common_array_definition* zt_xml_common_array_definition::CreateArrayInstance() {
  zt_xml_common_array_definition* current = m_pXmlStrRef.load(std::memory_order_acquire);
  if (current) return current;
  auto* made = ZtTrack(new zt_xml_common_array_definition, kLoggedSize, kSource, kCreateLine);
  if (!made) return nullptr;
  if (m_pXmlStrRef.compare_exchange_strong(current, made, std::memory_order_acq_rel)) return made;
  ZtRelease(made);
  return current;
}

void zt_xml_common_array_definition::ReleaseArrayInstance() {
  ZtRelease(m_pXmlStrRef.exchange(nullptr, std::memory_order_acq_rel));
}
