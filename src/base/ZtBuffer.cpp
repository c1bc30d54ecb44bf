#include "base/ZtBuffer.h"

#include "base/ZtBytes.h"

void ZtBuffer::Append(ZtPiece piece) {
  if (piece.size > m_iCapacity - m_iSize && !Grow(piece.size)) return;
  ZtCopy(m_pText + m_iSize, piece);
  m_iSize += piece.size;
}

char* ZtBuffer::Take() {
  Append('\0');
  if (Failed()) return nullptr;
  char* const text = m_pText;
  m_pText = nullptr;
  m_iSize = m_iCapacity = 0;
  return text;
}

bool ZtBuffer::Grow(std::size_t more) {
  // The NUL at the end is not counted.
  if (!Failed() && more > m_iLimit + 1 - m_iSize) m_bTooLong = true;
  if (Failed()) return false;
  std::size_t capacity = m_iCapacity ? 2 * m_iCapacity : kLeast;
  if (capacity < m_iSize + more) capacity = m_iSize + more;
  auto* const text = static_cast<char*>(__malloc(capacity));
  if (!text) {
    m_bNoMemory = true;
    m_iCapacity = m_iSize;  // so that smaller pieces are not appended after a lost one
    return false;
  }
  if (m_iSize) std::memcpy(text, m_pText, m_iSize);
  __free(m_pText);
  m_pText = text;
  m_iCapacity = capacity;
  return true;
}
