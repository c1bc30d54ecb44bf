// Short runs of bytes, without the C library's calls: most names, values and gaps between tags have
// less than 17 bytes, for which a call costs more than the work.
#ifndef ZTXML_SRC_BASE_ZTBYTES_H
#define ZTXML_SRC_BASE_ZTBYTES_H

#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "ztxml/ZtPiece.h"

#if defined(__GNUC__) && !defined(__clang__)
// The warning is about passing blocks between builds with and without vectors: all this is inlined.
#pragma GCC diagnostic ignored "-Wpsabi"
#endif

// Sixteen bytes, on which processors with vectors work at once.
using ZtBlock = unsigned char __attribute__((vector_size(16)));
// Without vectors blocks are slower than bytes, and ZtFirst counts from the low end.
#if (defined(__SSE2__) || defined(__ARM_NEON)) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
constexpr bool kZtHasVectors = true;
#else
constexpr bool kZtHasVectors = false;
#endif

template <class T>
inline T ZtGet(const char* from) {
  T value;
  std::memcpy(&value, from, sizeof(value));
  return value;
}
template <class T>
inline void ZtPut(char* to, T value) {
  std::memcpy(to, &value, sizeof(value));
}

// All ones in those bytes of `block` that are `c`.
inline ZtBlock ZtMatches(ZtBlock block, char c) {
  return reinterpret_cast<ZtBlock>(block == ZtBlock{} + static_cast<unsigned char>(c));
}

// One bit for each byte that is all ones, where other bytes are 0; the lowest for the first.
inline unsigned ZtBits(ZtBlock matches) {
#ifdef __SSE2__
  return static_cast<unsigned>(_mm_movemask_epi8(reinterpret_cast<__m128i>(matches)));
#else
  std::uint64_t halves[2];
  std::memcpy(halves, &matches, sizeof(halves));
  unsigned bits = 0;
  for (int i = 1; i >= 0; --i) {  // one byte of eight bits out of eight bytes
    bits = bits << 8 |
           static_cast<unsigned>((halves[i] & 0x8040201008040201) * 0x0101010101010101 >> 56);
  }
  return bits;
#endif
}
inline unsigned ZtFirstBit(unsigned bits) { return static_cast<unsigned>(__builtin_ctz(bits)); }

// The index of the first byte that is all ones, where other bytes are 0; 16 when there is none.
inline unsigned ZtFirst(ZtBlock matches) {
#ifdef __SSE2__
  return ZtFirstBit(ZtBits(matches) | 1U << sizeof(matches));
#else
  std::uint64_t halves[2];
  std::memcpy(halves, &matches, sizeof(halves));
  if (halves[0]) return static_cast<unsigned>(__builtin_ctzll(halves[0])) / 8;
  return halves[1] ? 8 + static_cast<unsigned>(__builtin_ctzll(halves[1])) / 8 : sizeof(matches);
#endif
}

// Whether any of the bytes is all ones, where other bytes are 0.
inline bool ZtAny(ZtBlock matches) {
#ifdef __SSE2__
  return ZtBits(matches) != 0;
#else
  std::uint64_t halves[2];
  std::memcpy(halves, &matches, sizeof(halves));
  return (halves[0] | halves[1]) != 0;
#endif
}

// Two words as one block.
inline ZtBlock ZtJoin(std::uint64_t low, std::uint64_t high) {
  using Words = std::uint64_t __attribute__((vector_size(16)));
  return reinterpret_cast<ZtBlock>(Words{low, high});
}

// Whether a whole block can be read from `at` without passing `end`.
inline bool ZtHasBlock(const char* at, const char* end) {
  return kZtHasVectors && end - at >= static_cast<std::ptrdiff_t>(sizeof(ZtBlock));
}

// The first `c` from `at` up to `end`, null when there is none.
inline char* ZtFind(char* at, char c, const char* end) {
  constexpr int kNear = 4;  // blocks
  for (int i = 0; i < kNear && ZtHasBlock(at, end); ++i, at += sizeof(ZtBlock)) {
    const unsigned first = ZtFirst(ZtMatches(ZtGet<ZtBlock>(at), c));
    if (first < sizeof(ZtBlock)) return at + first;
  }
  return static_cast<char*>(std::memchr(at, c, static_cast<std::size_t>(end - at)));
}

// Copies the first and the last sizeof(T) bytes, which may overlap.
template <class T>
inline void ZtCopyEnds(char* to, ZtPiece text) {
  const std::size_t last = text.size - sizeof(T);
  const T end = ZtGet<T>(text.text + last);
  ZtPut(to, ZtGet<T>(text.text));
  ZtPut(to + last, end);
}

// Whether two texts, which may be empty or null, have the same bytes.
inline bool ZtEqual(ZtPiece a, ZtPiece b) {
  return a.size == b.size && (a.size == 0 || std::memcmp(a.text, b.text, a.size) == 0);
}

// Returns the end of the copy.
inline char* ZtCopy(char* to, ZtPiece text) {
  if (text.size > 2 * sizeof(ZtBlock)) {
    std::memcpy(to, text.text, text.size);
  } else if (text.size >= sizeof(ZtBlock)) {
    ZtCopyEnds<ZtBlock>(to, text);
  } else if (text.size >= sizeof(std::uint64_t)) {
    ZtCopyEnds<std::uint64_t>(to, text);
  } else if (text.size >= sizeof(std::uint32_t)) {
    ZtCopyEnds<std::uint32_t>(to, text);
  } else {
    for (std::size_t i = 0; i < text.size; ++i) to[i] = text.text[i];
  }
  return to + text.size;
}

// As memcpy, for texts of some kilobytes: the C library has a way for these that begins slowly.
inline void ZtCopyText(char* to, const char* from, std::size_t size) {
  constexpr std::size_t kShort = 1024;
  for (; size > kShort; size -= kShort) {
    std::memcpy(to, from, kShort);
    to += kShort;
    from += kShort;
  }
  std::memcpy(to, from, size);
}

template <class T>
inline bool ZtSameEnds(const char* a, const char* b, std::size_t size) {
  const std::size_t last = size - sizeof(T);
  return ZtGet<T>(a) == ZtGet<T>(b) && ZtGet<T>(a + last) == ZtGet<T>(b + last);
}

// Whether `a` and `b` have equal bytes, `size` of them, at least one.
[[gnu::always_inline]] inline bool ZtSameBytes(const char* a, const char* b, std::size_t size) {
  if (size > sizeof(ZtBlock)) return std::memcmp(a, b, size) == 0;
  if (size >= sizeof(std::uint64_t)) return ZtSameEnds<std::uint64_t>(a, b, size);
  if (size >= sizeof(std::uint32_t)) return ZtSameEnds<std::uint32_t>(a, b, size);
  return a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1];
}

#endif  // ZTXML_SRC_BASE_ZTBYTES_H
