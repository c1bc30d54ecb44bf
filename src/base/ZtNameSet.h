// The names of a tag's attributes, to tell one that comes twice.
#ifndef ZTXML_SRC_BASE_ZTNAMESET_H
#define ZTXML_SRC_BASE_ZTNAMESET_H

#include "base/ZtBytes.h"
#include "base/ZtHash.h"
#include "base/ZtSmallArray.h"
#include "ztxml/ZtPiece.h"

// Names of two parts, borrowed: a namespace and a local name.
class ZtNameSet {
 public:
  ZtNameSet() = default;
  ~ZtNameSet() { __free(m_Slots); }
  ZtNameSet(const ZtNameSet&) = delete;
  ZtNameSet& operator=(const ZtNameSet&) = delete;

  void Clear() {
    m_Names.Cut(0);
    m_iSlots = 0;
  }
  // False when the name is there already. `number` is one that the namespace alone has, or 0 for
  // all. `failed` is set without memory.
  bool Insert(ZtPiece space, std::uint32_t number, ZtPiece local, bool& failed) {
    const Name name = {space, local, number};
    if (m_Names.Size() < kFew) {
      for (const Name& other : m_Names) {
        if (Equal(name, other)) return false;
      }
    } else {
      if (2 * (m_Names.Size() + 1) > m_iSlots && !Rebuild()) failed = true;
      if (failed) return false;
      std::uint32_t& slot = Slot(name);
      if (slot) return false;
      slot = m_Names.Size() + 1;
    }
    if (!m_Names.Add(name)) failed = true;
    return !failed;
  }

 private:
  struct Name {
    ZtPiece space;
    ZtPiece local;
    std::uint32_t number;
  };
  static constexpr std::uint32_t kFew = 16;

  static bool Equal(const Name& a, const Name& b) {
    return ZtEqual(a.local, b.local) && ZtEqual(a.space, b.space);
  }
  std::uint32_t Hash(const Name& name) const {
    return static_cast<std::uint32_t>(ZtHash(name.local, ZtSeed(this) + name.number));
  }
  // Of the name, or the free one where it belongs.
  std::uint32_t& Slot(const Name& name) {
    std::uint32_t at = Hash(name) & (m_iSlots - 1);
    while (m_Slots[at] && !Equal(m_Names[m_Slots[at] - 1], name)) at = (at + 1) & (m_iSlots - 1);
    return m_Slots[at];
  }
  bool Rebuild() {
    const std::uint32_t slots = 4 * (m_Names.Size() + 1) + 64;
    std::uint32_t power = 64;
    while (power < slots) power *= 2;
    if (power > m_iRoom) {
      auto* const memory = static_cast<std::uint32_t*>(__calloc(power, sizeof(std::uint32_t)));
      if (!memory) return false;
      __free(m_Slots);
      m_Slots = memory;
      m_iRoom = power;
    } else {
      std::memset(m_Slots, 0, power * sizeof(std::uint32_t));
    }
    m_iSlots = power;
    for (std::uint32_t i = 0; i < m_Names.Size(); ++i) Slot(m_Names[i]) = i + 1;
    return true;
  }

  ZtSmallArray<Name, kFew> m_Names;
  std::uint32_t* m_Slots = nullptr;  // index + 1 of a name or 0
  std::uint32_t m_iSlots = 0;        // in use, a power of two; 0 while there are few names
  std::uint32_t m_iRoom = 0;
};

#endif  // ZTXML_SRC_BASE_ZTNAMESET_H
