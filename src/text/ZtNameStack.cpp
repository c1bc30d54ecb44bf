#include "text/ZtNameStack.h"

#include "base/ZtBytes.h"
#include "base/ZtHash.h"

namespace {

bool AreEqual(ZtPiece a, ZtPiece b) {
  return a.size == b.size && (a.size == 0 || ZtSameBytes(a.text, b.text, a.size));
}

}  // namespace

std::uint32_t ZtNameStack::Find(ZtPiece name) const {
  if (m_pSlots) return m_pSlots[Slot(name)] - 1;
  for (std::uint32_t i = Size(); i > 0; --i) {
    if (AreEqual(m_Entries[i - 1].name, name)) return i - 1;
  }
  return kZtNone;
}

bool ZtNameStack::Push(ZtPiece name, std::uint32_t value) {
  if (!m_Entries.Add({name, value, kZtNone})) return false;
  if (Size() <= kFew && !m_pSlots) return true;
  if (!m_pSlots || Size() > m_iMask / 2) return Rebuild();
  m_pSlots[Slot(name)] = Size();
  return true;
}

// The last entry is the one whose slot was taken last: no other was put off by it, so that the slot
// may simply be emptied.
void ZtNameStack::Pop() {
  if (m_pSlots) m_pSlots[Slot(m_Entries.Last().name)] = 0;
  m_Entries.Cut(Size() - 1);
}

void ZtNameStack::Clear() {
  m_Entries.Cut(0);
  __free(m_pSlots);
  m_pSlots = nullptr;
}

// Where the name is, or would be.
std::uint32_t ZtNameStack::Slot(ZtPiece name) const {
  auto slot = static_cast<std::uint32_t>(ZtHash(name, ZtSeed(m_pSlots))) & m_iMask;
  while (m_pSlots[slot] && !AreEqual(m_Entries[m_pSlots[slot] - 1].name, name)) {
    slot = (slot + 1) & m_iMask;
  }
  return slot;
}

// Slots for four times as many as there are, taken in the order of the entries.
bool ZtNameStack::Rebuild() {
  const std::size_t slots =
      m_pSlots ? std::size_t{2} * (m_iMask + std::size_t{1}) : std::size_t{4} * kFew;
  if (slots > UINT32_MAX / 2) return false;
  auto* memory = static_cast<std::uint32_t*>(__calloc(slots, sizeof(std::uint32_t)));
  if (!memory) return false;
  __free(m_pSlots);
  m_pSlots = memory;
  m_iMask = static_cast<std::uint32_t>(slots - 1);
  for (std::uint32_t i = 0; i < Size(); ++i) m_pSlots[Slot(m_Entries[i].name)] = i + 1;
  return true;
}
