// Characters: which of them XML 1.0 allows where, and their bytes in UTF-8.
#ifndef ZTXML_SRC_TEXT_ZTCHARACTERS_H
#define ZTXML_SRC_TEXT_ZTCHARACTERS_H

#include <cstdint>

constexpr std::uint32_t kZtLastCharacter = 0x10FFFF;

inline bool ZtIsSurrogate(std::uint32_t c) { return (c & 0xFFFFF800) == 0xD800; }

// Whether a document may hold the character.
inline bool ZtIsXmlCharacter(std::uint32_t c) {
  if (c < ' ') return c == '\t' || c == '\n' || c == '\r';
  return c <= kZtLastCharacter && !ZtIsSurrogate(c) && (c & 0xFFFFFFFE) != 0xFFFE;
}

// The bytes that a character has in UTF-8.
inline unsigned ZtUtf8Size(std::uint32_t c) {
  return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
}

// Writes the character in UTF-8; returns its end.
inline char* ZtPutUtf8(char* to, std::uint32_t c) {
  if (c < 0x80) {
    *to++ = static_cast<char>(c);
    return to;
  }
  const unsigned size = ZtUtf8Size(c);
  for (unsigned i = size - 1; i > 0; --i, c >>= 6) to[i] = static_cast<char>(0x80 | (c & 0x3F));
  to[0] = static_cast<char>((0xF00 >> size) | c);
  return to + size;
}

// The character that begins at `at`, which passes its end: the text must be valid UTF-8.
inline std::uint32_t ZtGetUtf8(const char*& at) {
  const auto next = [&] { return static_cast<std::uint32_t>(static_cast<unsigned char>(*at++)); };
  std::uint32_t c = next();
  if (c < 0x80) return c;
  int more = c < 0xE0 ? 1 : c < 0xF0 ? 2 : 3;
  for (c &= 0x3FU >> more; more > 0; --more) c = c << 6 | (next() & 0x3F);
  return c;
}

// Which characters beyond ASCII names may begin with or have later, as XML 1.0 had it up to its
// fourth edition: later characters are none.
bool ZtBeginsName(std::uint32_t c);
bool ZtContinuesName(std::uint32_t c);

[[gnu::always_inline]] inline bool ZtIsBlank(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

#endif  // ZTXML_SRC_TEXT_ZTCHARACTERS_H
