// A text that grows as pieces are appended.
#ifndef ZTXML_SRC_BASE_ZTBUFFER_H
#define ZTXML_SRC_BASE_ZTBUFFER_H

#include <cstring>

#include "base/ZtBytes.h"
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
  template <std::size_t N>
  void Append(const char (&literal)[N]) {
    Append(Piece(literal));
  }
  void Append(char c) {
    if (char* const at = Room(1)) {
      *at = c;
      ++m_iSize;
    } else {
      Append(Piece(c));
    }
  }
  // Texts, literals and characters, one after the other, mostly with one check for their room.
  template <class First, class Second, class... Others>
  [[gnu::always_inline]] void Append(const First& first, const Second& second,
                                     const Others&... others) {
    AppendAll(first, second, others...);
  }
  // Where so many bytes can be written, null where there is no such room yet; and up to where they
  // were.
  [[gnu::always_inline]] char* Room(std::size_t size) const {
    return size <= m_iCapacity - m_iSize ? m_pText + m_iSize : nullptr;
  }
  void End(const char* at) { m_iSize = static_cast<std::size_t>(at - m_pText); }
  // Makes room for so many bytes in all, if there is memory.
  void Reserve(std::size_t size) {
    if (size > m_iCapacity && size <= m_iLimit) Grow(size - m_iSize);
  }
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
  template <class... Pieces>
  [[gnu::always_inline]] void AppendAll(const Pieces&... pieces) {
    const std::size_t size = (SizeOf(pieces) + ...);
    char* at = Room(size);
    if (!at) return (Append(Piece(pieces)), ...);
    ((at = Put(at, pieces)), ...);
    m_iSize += size;
  }

  static std::size_t SizeOf(ZtPiece piece) { return piece.size; }
  static std::size_t SizeOf(char) { return 1; }
  template <std::size_t N>
  static constexpr std::size_t SizeOf(const char (&)[N]) {
    return N - 1;
  }
  static ZtPiece Piece(ZtPiece piece) { return piece; }
  static ZtPiece Piece(const char& c) { return {&c, 1}; }
  template <std::size_t N>
  static ZtPiece Piece(const char (&literal)[N]) {
    return {literal, N - 1};
  }
  static char* Put(char* to, ZtPiece piece) { return ZtCopy(to, piece); }
  static char* Put(char* to, char c) {
    *to = c;
    return to + 1;
  }
  template <std::size_t N>
  static char* Put(char* to, const char (&literal)[N]) {
    std::memcpy(to, literal, N - 1);
    return to + N - 1;
  }

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
