#include "binding/ZtNames.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint8_t kSizes[] = {
#define ZT_NAME(id, text) sizeof(text) - 1,
#include "XMLCommonNames.inc"
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};
static_assert(sizeof(kSizes) == kZtNameCount, "every name has a size");

constexpr char kExtraNames[][32] = {
#define ZT_NAME(id, text) text,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

constexpr std::size_t Hash(const char* text, std::size_t size) {
  const auto at = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  return ((size * 31 + at(0)) * 31 + at(size / 2)) * 31 + at(size - 1);
}

// Where to look for a name: open addressing, an id + 1 in each slot, 0 in free ones.
struct Index {
  static constexpr std::size_t kSlots = 1024;
  std::uint16_t slots[kSlots] = {};

  constexpr Index() {
    const char* const texts[] = {
#define ZT_NAME(id, text) text,
#include "XMLCommonNames.inc"
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
    };
    // Of equal texts the first comes first; "ZT_NULL" is the name of no element.
    for (std::size_t id = 1; id < kZtNameCount; ++id) {
      std::size_t slot = Hash(texts[id], kSizes[id]) % kSlots;
      while (slots[slot]) slot = (slot + 1) % kSlots;
      slots[slot] = static_cast<std::uint16_t>(id + 1);
    }
  }
};
constexpr Index kIndex;

const char* TextOf(int id) {
  return id < kXmlStrRefCount
             ? zt_xml_common_array_definition::getStringName(static_cast<e_XmlStrRef>(id))
             : kExtraNames[id - kXmlStrRefCount];
}

}  // namespace

ZtNameId ZtNameId::Of(const char* text, std::size_t size) {
  if (size == 0) return kZtNoName;
  for (std::size_t slot = Hash(text, size) % Index::kSlots; kIndex.slots[slot];
       slot = (slot + 1) % Index::kSlots) {
    const int id = kIndex.slots[slot] - 1;
    if (kSizes[id] == size && std::memcmp(TextOf(id), text, size) == 0) {
      return static_cast<ZtExtraName>(id);
    }
  }
  return kZtNoName;
}

const char* ZtNameId::Text() const { return TextOf(m_Id); }

std::size_t ZtNameId::Size() const { return kSizes[m_Id]; }
