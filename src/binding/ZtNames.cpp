#include "binding/ZtNames.h"

#include <cstdint>
#include <cstring>

// Names are copied by whole blocks of their rows.
#define ZT_NAME(id, text) static_assert(sizeof(text) - 1 <= 96);
#include "ztxml/XMLCommonNames.inc"
#undef ZT_NAME
static_assert(zt_xml_common_array_definition::kRowSize >= 96);
static_assert(kZtExtraNameSize % sizeof(ZtBlock) == 0);

const std::uint8_t kZtNameSizes[kZtNameCount] = {
#define ZT_NAME(id, text) sizeof(text) - 1,
#include "ztxml/XMLCommonNames.inc"
// The library's own names have the numbers after the shared ones.
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

const char kZtExtraNames[kZtExtraNameCount][kZtExtraNameSize] = {
#define ZT_NAME(id, text) text,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

namespace {

// The factors are those of many tried with which the names are found in the fewest steps.
constexpr std::size_t Hash(const char* text, std::size_t size) {
  const auto at = [text](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(text[i]);
  };
  return size * 412 + at(0) * 119 + at(size / 2) * 102 + at(size - 1) * 421;
}

// Where to look for a name: open addressing, size 0 in free slots.
struct Index {
  struct Slot {
    std::uint16_t id;
    std::uint8_t size;
    char first;
  };
  static constexpr std::size_t kSlots = 512;
  Slot slots[kSlots] = {};

  constexpr Index() {
    const char* const texts[] = {
#define ZT_NAME(id, text) text,
#include "ztxml/XMLCommonNames.inc"
// The library's own names have the numbers after the shared ones.
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
    };
    // Of equal texts the first comes first; "ZT_NULL" is the name of no element.
    for (std::size_t id = 1; id < kZtNameCount; ++id) {
      std::size_t size = 0;
      while (texts[id][size]) ++size;
      std::size_t slot = Hash(texts[id], size) % kSlots;
      while (slots[slot].size) slot = (slot + 1) % kSlots;
      slots[slot] = {static_cast<std::uint16_t>(id), static_cast<std::uint8_t>(size), texts[id][0]};
    }
  }
};
constexpr Index kIndex;

}  // namespace

ZtNameId ZtNameId::Of(ZtPiece name) {
  const char* const text = name.text;
  const std::size_t size = name.size;
  if (size == 0) return kZtNoName;
  for (std::size_t at = Hash(text, size) % Index::kSlots; kIndex.slots[at].size;
       at = (at + 1) % Index::kSlots) {
    const Index::Slot& slot = kIndex.slots[at];
    const ZtNameId id = static_cast<ZtExtraName>(slot.id);
    if (slot.size == size && slot.first == *text && ZtSameBytes(id.Text(), text, size)) return id;
  }
  return kZtNoName;
}
