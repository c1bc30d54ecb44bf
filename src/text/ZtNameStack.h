// Names that come into scope and leave it again, the last first, found at a cost that does not grow
// with their number.
#ifndef ZTXML_SRC_TEXT_ZTNAMESTACK_H
#define ZTXML_SRC_TEXT_ZTNAMESTACK_H

#include <cstdint>

#include "base/ZtSmallArray.h"
#include "ztxml/ZtPiece.h"

constexpr std::uint32_t kZtNone = UINT32_MAX;  // the index of nothing

class ZtNameStack {
 public:
  struct Entry {
    ZtPiece name;
    std::uint32_t value;   // the caller's
    std::uint32_t newest;  // the caller's, kZtNone at first
  };

  ZtNameStack() = default;
  ~ZtNameStack() { __free(m_pSlots); }
  ZtNameStack(const ZtNameStack&) = delete;
  ZtNameStack& operator=(const ZtNameStack&) = delete;

  std::uint32_t Size() const { return m_Entries.Size(); }
  Entry& operator[](std::uint32_t index) { return m_Entries[index]; }
  const Entry& operator[](std::uint32_t index) const { return m_Entries[index]; }

  // The index of the name, kZtNone when it is not in scope.
  std::uint32_t Find(ZtPiece name) const;
  // Adds a name that is not in scope, borrowed until it leaves; false without memory.
  bool Push(ZtPiece name, std::uint32_t value);
  // The last one leaves.
  void Pop();
  void Clear();

 private:
  static constexpr std::uint32_t kFew = 8;  // so many are compared one by one

  std::uint32_t Slot(ZtPiece name) const;
  bool Rebuild();

  ZtSmallArray<Entry, kFew> m_Entries;
  std::uint32_t* m_pSlots = nullptr;  // index + 1 of an entry or 0; null while there are few
  std::uint32_t m_iMask = 0;          // slots - 1
};

#endif  // ZTXML_SRC_TEXT_ZTNAMESTACK_H
