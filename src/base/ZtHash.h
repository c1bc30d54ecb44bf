// Hash values of names that a document chooses.
#ifndef ZTXML_SRC_BASE_ZTHASH_H
#define ZTXML_SRC_BASE_ZTHASH_H

#include <cstdint>

#include "ztxml/ZtPiece.h"

// With a seed that a document cannot know, such as where a table lies, the order of the table's
// slots is one that it cannot aim at.
inline std::uint64_t ZtSeed(const void* place) { return reinterpret_cast<std::uintptr_t>(place); }

inline std::uint64_t ZtHash(ZtPiece name, std::uint64_t seed) {
  std::uint64_t hash = seed;
  for (std::size_t i = 0; i < name.size; ++i) {
    hash = (hash ^ static_cast<unsigned char>(name.text[i])) * 0x100000001B3U;
  }
  hash = (hash ^ (hash >> 32)) * 0x9E3779B97F4A7C15U;
  return hash >> 32;
}

#endif  // ZTXML_SRC_BASE_ZTHASH_H
