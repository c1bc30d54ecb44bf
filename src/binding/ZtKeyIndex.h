// Finds entries of lists by their keys: of any list of a tree in one table, which grows with the
// entries and is asked in constant time.
#ifndef ZTXML_SRC_BINDING_ZTKEYINDEX_H
#define ZTXML_SRC_BINDING_ZTKEYINDEX_H

#include "base/ZtHash.h"
#include "binding/ZtStandard.h"

// The key of an object, empty when it has none.
inline ZtPiece ZtKeyOf(const XMLElement& object, const ZtElementType& type) {
  const ZtNameId key = type.extras->telling->key;
  const ZtField* row = ZtFindAttribute(type, key);
  if (!row) row = ZtFindChild(type, key);
  const ZtPiece text = row ? row->Text(object).Piece() : nullptr;
  return text.text ? text : ZtPiece("", 0);
}

class ZtKeyIndex {
 public:
  // An entry of the list of `parent`, and the node before its own, null for the first.
  struct Slot {
    const XMLElement* parent;  // null: free
    ZtListNode* node;          // null with a parent: freed
    ZtListNode* previous;
    std::uint32_t hash;
    std::uint32_t mark;
  };

  ZtKeyIndex() = default;
  ~ZtKeyIndex() { __free(m_Slots); }
  ZtKeyIndex(const ZtKeyIndex&) = delete;
  ZtKeyIndex& operator=(const ZtKeyIndex&) = delete;

  // Begins a change, with room for so many more entries; false without memory. No entry is marked.
  bool Begin(std::size_t more) {
    ++m_iMark;
    if (2 * (m_iUsed + more) <= m_iSlots) return true;
    std::size_t slots = 64;
    while (slots < 4 * (m_iCount + more)) slots *= 2;
    auto* const memory = static_cast<Slot*>(__calloc(slots, sizeof(Slot)));
    if (!memory) return false;
    Slot* const old = m_Slots;
    const std::size_t count = m_iSlots;
    m_Slots = memory;
    m_iSlots = slots;
    m_iUsed = m_iCount;
    for (std::size_t i = 0; i < count; ++i) {
      if (old[i].node) Free(old[i].hash) = old[i];
    }
    __free(old);
    return true;
  }
  // The entry of a key; null when there is none.
  Slot* Find(const XMLElement& parent, const ZtElementType& type, ZtPiece key) {
    const std::uint32_t hash = Hash(parent, key);
    for (std::size_t at = hash; m_iSlots; ++at) {
      Slot& slot = m_Slots[at & (m_iSlots - 1)];
      if (!slot.parent) break;
      if (slot.node && slot.hash == hash && slot.parent == &parent &&
          ZtEqual(ZtKeyOf(*static_cast<XMLElement*>(slot.node->data), type), key)) {
        return &slot;
      }
    }
    return nullptr;
  }
  // Of a node, unless another one has its key.
  Slot* Find(const XMLElement& parent, const ZtElementType& type, const ZtListNode& node) {
    Slot* const slot = Find(parent, type, ZtKeyOf(*static_cast<XMLElement*>(node.data), type));
    return slot && slot->node == &node ? slot : nullptr;
  }
  // Room was made. An entry whose key its list has already cannot be found: it stays as it is.
  void Add(const XMLElement& parent, const ZtElementType& type, ZtListNode& node,
           ZtListNode* previous) {
    const ZtPiece key = ZtKeyOf(*static_cast<XMLElement*>(node.data), type);
    if (Find(parent, type, key)) return;
    const std::uint32_t hash = Hash(parent, key);
    Slot& slot = Free(hash);
    if (!slot.parent) ++m_iUsed;
    slot = {&parent, &node, previous, hash, 0};
    ++m_iCount;
  }
  void Remove(Slot& slot) {
    slot.node = nullptr;
    --m_iCount;
  }
  void Mark(Slot& slot) const { slot.mark = m_iMark; }
  bool IsMarked(const Slot& slot) const { return slot.mark == m_iMark; }
  void Clear() {
    if (m_iSlots) std::memset(static_cast<void*>(m_Slots), 0, m_iSlots * sizeof(Slot));
    m_iUsed = m_iCount = 0;
  }

 private:
  // With the seed a peer cannot choose keys that meet in one slot.
  std::uint32_t Hash(const XMLElement& parent, ZtPiece key) const {
    return static_cast<std::uint32_t>(ZtHash(key, ZtSeed(this) + 31 * ZtSeed(&parent)));
  }
  Slot& Free(std::uint32_t hash) {
    std::size_t at = hash;
    while (m_Slots[at & (m_iSlots - 1)].node) ++at;
    return m_Slots[at & (m_iSlots - 1)];
  }

  Slot* m_Slots = nullptr;
  std::size_t m_iSlots = 0;  // a power of two
  std::size_t m_iCount = 0;  // entries
  std::size_t m_iUsed = 0;   // entries and freed slots
  std::uint32_t m_iMark = 0;
};

#endif  // ZTXML_SRC_BINDING_ZTKEYINDEX_H
