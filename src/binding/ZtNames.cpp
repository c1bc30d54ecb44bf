#include "binding/ZtNames.h"

#include <cstdint>
#include <cstring>

const std::uint8_t kZtNameSizes[kZtNameCount] = {
#define ZT_NAME(id, text) sizeof(text) - 1,
#include "XMLCommonNames.inc"
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

const char kZtExtraNames[kZtExtraNameCount][kZtExtraNameSize] = {
#define ZT_NAME(id, text) text,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
};

namespace {

constexpr std::size_t Hash(const char* text, std::size_t size) {
  const auto at = [text](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(text[i]);
  };
  return size * 19 + at(0) * 67 + at(size / 2) * 257 + at(size - 1);
}

// Where to look for a name: open addressing, size 0 in free slots.
struct Index {
  struct Slot {
    std::uint16_t id;
    std::uint8_t size;
    char first;
  };
  static constexpr std::size_t kSlots = 2048;
  Slot slots[kSlots] = {};

  constexpr Index() {
    const char* const texts[] = {
#define ZT_NAME(id, text) text,
#include "XMLCommonNames.inc"
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

template <class Word>
bool SameEnds(const char* a, const char* b, std::size_t size) {
  Word words[4];
  std::memcpy(&words[0], a, sizeof(Word));
  std::memcpy(&words[1], b, sizeof(Word));
  std::memcpy(&words[2], a + size - sizeof(Word), sizeof(Word));
  std::memcpy(&words[3], b + size - sizeof(Word), sizeof(Word));
  return words[0] == words[1] && words[2] == words[3];
}

}  // namespace

// Nearly all names have less than 17 bytes: a call would cost more than the comparison.
bool ZtSameBytes(const char* a, const char* b, std::size_t size) {
  if (size > 16) return std::memcmp(a, b, size) == 0;
  if (size >= 8) return SameEnds<std::uint64_t>(a, b, size);
  if (size >= 4) return SameEnds<std::uint32_t>(a, b, size);
  return a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1];
}

ZtNameId ZtNameId::Of(const ZtPiece& name) {
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
