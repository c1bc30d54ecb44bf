// A text that grows as pieces are appended.
#ifndef ZTXML_SRC_BASE_ZTBUFFER_H
#define ZTXML_SRC_BASE_ZTBUFFER_H

#include <cstring>

#include "ztxml/ZtPiece.h"
#include "ztxml/ztPlatform.h"

class ZtBuffer {
 public:
  static constexpr std::size_t kUnlimited = ~std::size_t{0} >> 1;

  explicit ZtBuffer(std::size_t limit = kUnlimited) : m_iLimit(limit) {}
  ~ZtBuffer() { __free(m_pText); }
  ZtBuffer(const ZtBuffer&) = delete;
  ZtBuffer& operator=(const ZtBuffer&) = delete;

  // Nothing is appended any more once memory was lacking or the text would have passed its limit.
  void Append(ZtPiece piece);
  // Makes room for so many bytes in all, if there is memory.
  void Reserve(std::size_t size) {
    if (size > m_iCapacity && size <= m_iLimit) Grow(size - m_iSize);
  }
  void Append(char c) { Append({&c, 1}); }
  void Cut(std::size_t size) { m_iSize = size; }
  // Empty, and nothing has failed.
  void Clear() {
    m_iSize = 0;
    m_bNoMemory = m_bTooLong = false;
  }

  std::size_t Size() const { return m_iSize; }
  const char* Text() const { return m_pText; }
  ZtPiece Piece() const { return {m_pText, m_iSize}; }
  bool Failed() const { return m_bNoMemory || m_bTooLong; }
  bool IsTooLong() const { return m_bTooLong; }

  // The text with a NUL, which is the caller's to free; null when something could not be appended.
  char* Take();

 private:
  bool Grow(std::size_t more);

  static constexpr std::size_t kLeast = 512;

  char* m_pText = nullptr;
  std::size_t m_iSize = 0;
  std::size_t m_iCapacity = 0;
  std::size_t m_iLimit;
  bool m_bNoMemory = false;
  bool m_bTooLong = false;
};

#endif  // ZTXML_SRC_BASE_ZTBUFFER_H
