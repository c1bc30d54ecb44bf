// Where the signs of markup are in a text. They are found 64 bytes at a time, as bits, ahead of
// whoever walks through the text, so that no byte between two signs is looked at again.
#ifndef ZTXML_SRC_TEXT_ZTSTRUCTURE_H
#define ZTXML_SRC_TEXT_ZTSTRUCTURE_H

#include <cstddef>
#include <cstdint>

#include "base/ZtBytes.h"

// What stands in 64 bytes, the first of them in the lowest bit.
struct ZtSigns {
  static constexpr std::size_t kBytes = 64;

  std::uint64_t tags;   // each '<'
  std::uint64_t signs;  // each of < > " ' & #
};

// Finds the signs of `count` times 64 bytes. All versions find alike.
using ZtFindSigns = void(const char* text, std::size_t count, ZtSigns* found);
ZtFindSigns ZtFindSignsPlain;
ZtFindSigns ZtFindSignsByVectors;  // that all processors of the kind have, if any
ZtFindSigns ZtFindSignsFastest;    // by the widest vectors of this processor

// A walk through a text: from tag to tag, and within a tag from sign to sign. What lies before the
// walk may be changed meanwhile.
class ZtStructure {
 public:
  // Where a walk within a tag is: a block of 64 bytes, and its signs that are not passed yet.
  struct Place {
    char* block;
    std::uint64_t signs;
  };

  // From `text` on to the NUL at `end`.
  ZtStructure(char* text, const char* end) : m_pBlock(text - ZtSigns::kBytes), m_pEnd(end) {
    NextBlock();
  }

  // The next '<' from `at` on, which the walk has not passed; null when there is none.
  char* NextTag(const char* at) {
    while (true) {
      while (m_Tags == 0) {
        if (!NextBlock()) return nullptr;
      }
      char* const tag = m_pBlock + __builtin_ctzll(m_Tags);
      m_Tags &= m_Tags - 1;
      if (tag >= at) return tag;
    }
  }

  // Before the signs from `at` on, in the tag that was found last.
  Place Enter(const char* at) {
    auto passed = static_cast<std::size_t>(at - m_pBlock);
    for (; passed >= ZtSigns::kBytes; passed -= ZtSigns::kBytes) {
      if (!NextBlock()) return {m_pBlock, 0};  // the text ends there
    }
    return {m_pBlock, m_pNext[-1].signs & ~std::uint64_t{0} << passed};
  }

  // The next sign; the NUL at the end of the text when there is none.
  char* NextSign(Place& place) {
    while (place.signs == 0) {
      if (!NextBlock()) return const_cast<char*>(m_pEnd);
      place = {m_pBlock, m_pNext[-1].signs};
    }
    const auto bit = __builtin_ctzll(place.signs);
    place.signs &= place.signs - 1;
    return place.block + bit;
  }

 private:
  static constexpr std::size_t kAhead = 16;  // blocks that are looked through at once

  bool NextBlock() {
    if (m_pNext == m_pLast && !LookAhead()) return false;
    m_pBlock += ZtSigns::kBytes;
    m_Tags = m_pNext->tags;
    ++m_pNext;
    return true;
  }
  bool LookAhead();

  char* m_pBlock;  // where the walk is
  const char* m_pEnd;
  std::uint64_t m_Tags = 0;  // of the block, those that are not passed
  const ZtSigns* m_pNext = nullptr;
  const ZtSigns* m_pLast = nullptr;
  ZtSigns m_Found[kAhead];
};

#endif  // ZTXML_SRC_TEXT_ZTSTRUCTURE_H
