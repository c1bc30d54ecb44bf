#include "TagScanner.h"

namespace {

// What a character ends. A NUL ends everything.
enum : unsigned char { kEndsName = 1, kEndsDouble = 2, kEndsSingle = 4, kSpace = 8 };

struct Classes {
  unsigned char of[256] = {};

  constexpr Classes() {
    Add(" \t\r\n>/=\"'<!?", kEndsName);
    Add(">&\"", kEndsDouble);
    Add(">&'", kEndsSingle);
    Add(" \t\r\n", kSpace);
    of[0] = kEndsName | kEndsDouble | kEndsSingle;
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

// The closing quote of the value at `at`, or null.
char* EndOfValue(char* at, char quote, bool& hasEntity) {
  const unsigned char what = quote == '"' ? kEndsDouble : kEndsSingle;
  hasEntity = false;
  for (at = EndOf(at, what); *at == '&'; at = EndOf(at + 1, what)) hasEntity = true;
  return *at == quote ? at : nullptr;
}

}  // namespace

bool ScannedTag::Scan(char* name) {
  char* at = nameEnd = EndOf(name, kEndsName);
  if (at == name) return false;
  blankAtEnd = false;
  count = 0;
  for (;;) {
    const bool spaced = Is(*at, kSpace);
    while (Is(*at, kSpace)) ++at;
    isEmpty = *at == '/' && at[1] == '>';
    if (isEmpty || *at == '>') {
      blankAtEnd = spaced && count > 0;
      close = at + isEmpty;
      return !spaced || count > 0;
    }
    if (!spaced || count == kMostAttributes) return false;
    ScannedAttribute& attribute = attributes[count++];
    attribute.name = at;
    at = attribute.nameEnd = EndOf(at, kEndsName);
    if (*at != '=' || at == attribute.name || (at[1] != '"' && at[1] != '\'')) return false;
    attribute.value = at + 2;
    at = attribute.valueEnd = EndOfValue(attribute.value, at[1], attribute.hasEntity);
    if (!at) return false;
    ++at;
  }
}
