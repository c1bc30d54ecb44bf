#include "binding/ZtPath.h"

#include "binding/ZtBinding.h"

std::size_t ZtPath::Push(const char* sign, ZtPiece name, std::size_t index) {
  const std::size_t size = m_iSize;
  char buffer[kZtNumberSize];
  const ZtPiece number = index ? ZtFormatNumber(index, buffer) : ZtPiece(nullptr);
  const ZtPiece start = sign;
  const std::size_t more = start.size + name.size + (index ? number.size + 2 : 0);
  if (m_iSize > kMost || more > kMost - m_iSize) {
    if (m_iSize <= kMost) Append("...");
    m_iSize = kMost + 1;
    return size;
  }
  Append(start);
  Append(name);
  if (index) {
    Append("[");
    Append(number);
    Append("]");
  }
  return size;
}

void ZtPath::Append(ZtPiece piece) {
  if (piece.size) std::memcpy(m_Text + m_iSize, piece.text, piece.size);
  m_iSize += piece.size;
  m_Text[m_iSize] = '\0';
}
