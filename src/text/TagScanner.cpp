#include "text/TagScanner.h"

#include "base/ZtBytes.h"

namespace {

enum : unsigned char { kEndsName = 1, kColon = 2, kSpace = 4 };

struct Classes {
  unsigned char of[256] = {};

  constexpr Classes() {
    Add(" \t\r\n>/=\"'<!?", kEndsName);
    Add(":", kColon);
    Add(" \t\r\n", kSpace);
    of[0] = kEndsName;
  }
  constexpr void Add(const char* characters, unsigned char what) {
    for (; *characters; ++characters) {
      unsigned char& classes = of[static_cast<unsigned char>(*characters)];
      classes = static_cast<unsigned char>(classes | what);
    }
  }
};
constexpr Classes kClasses;

bool Is(char c, unsigned char what) {
  return (kClasses.of[static_cast<unsigned char>(c)] & what) != 0;
}

char* EndOf(char* at, unsigned char what) {
  while (!Is(*at, what)) ++at;
  return at;
}

// The end of an element's name, or its colon, in a text that ends with a NUL at `end`. Sixteen
// bytes at once are looked through for those that end a name and a few others; the loop goes
// on where the first of them is. (Names of attributes come in one order again and again: there the
// loop alone is as fast.)
char* EndOfElement(char* at, const char* end) {
  if (ZtHasBlock(at, end)) {
    const auto block = ZtGet<ZtBlock>(at);
    constexpr unsigned char kLowest = '"';  // and white space, '!', NUL
    at += ZtFirst(reinterpret_cast<ZtBlock>(block <= ZtBlock{} + kLowest) | ZtMatches(block, '\'') |
                  ZtMatches(block, '/') | ZtMatches(block, ':') |
                  ZtMatches(block & 0xFC, '<'));  // and '=', '>', '?'
  }
  return EndOf(at, kEndsName | kColon);
}

}  // namespace

// Most tags end after their name. Intended: the first '>' ends a tag, so that none can stand in an
// attribute's value, where XML allows it; callers escape it there.
bool ScannedTag::Scan(char* begin, char* scanned, const char* end) {
  const bool resumed = scanned > begin;
  close = resumed ? ZtFind(scanned, '>', end) : nullptr;
  if (resumed && !close) return false;
  char* at = name = begin;
  at = EndOfElement(at, end);
  colon = *at == ':' ? at : nullptr;
  if (colon) at = EndOf(at, kEndsName);
  nameEnd = at;
  if (!close) close = *at == '>' ? at : ZtFind(at, '>', end);
  if (!close || at == begin) return false;
  count = 0;
  isEmpty = blankAtEnd = false;
  while (at != close) {
    const bool spaced = Is(*at, kSpace);
    while (Is(*at, kSpace)) ++at;
    isEmpty = *at == '/' && at + 1 == close;
    if (isEmpty || at == close) {
      blankAtEnd = spaced && count > 0;
      return !spaced || count > 0;
    }
    if (!spaced || count == kMostAttributes) return false;
    ScannedAttribute& attribute = attributes[count++];
    attribute.name = at;
    at = attribute.nameEnd = EndOf(at, kEndsName);
    if (*at != '=' || at == attribute.name || (at[1] != '"' && at[1] != '\'')) return false;
    attribute.value = at + 2;
    at = attribute.valueEnd = ZtFind(attribute.value, at[1], close);
    if (!at) return false;
    ++at;
  }
  return true;
}
