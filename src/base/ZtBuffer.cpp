#include "base/ZtBuffer.h"

void ZtBuffer::Append(ZtPiece piece) {
  if (piece.size > m_iCapacity - m_iSize && !Grow(piece.size)) return;
  ZtCopy(m_pText + m_iSize, piece);
  m_iSize += piece.size;
}

char* ZtBuffer::Take() {
  if (!m_pText && !Grow(0)) return nullptr;
  if (Failed()) return nullptr;
  char* const text = m_pText;
  text[m_iSize] = '\0';
  m_pText = nullptr;
  m_iSize = m_iCapacity = 0;
  return text;
}

// There is always room for a NUL besides.
bool ZtBuffer::Grow(std::size_t more) {
  if (!Failed() && more > m_iLimit - m_iSize) {
    m_bTooLong = true;
    m_iCapacity = m_iSize;  // so that smaller pieces are not appended after a lost one
  }
  if (Failed()) return false;
  std::size_t capacity = m_iCapacity ? 2 * m_iCapacity + 1 : kLeast - 1;
  if (capacity < m_iSize + more) capacity = m_iSize + more;
  if (capacity > m_iLimit) capacity = m_iLimit;
  auto* const text = static_cast<char*>(__malloc(capacity + 1));
  if (!text) {
    m_bNoMemory = true;
    m_iCapacity = m_iSize;
    return false;
  }
  if (m_pText) std::memcpy(text, m_pText, m_iSize);
  __free(m_pText);
  m_pText = text;
  m_iCapacity = capacity;
  return true;
}
