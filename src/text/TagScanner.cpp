#include "text/TagScanner.h"

#include "text/ZtCharacters.h"

namespace {

bool EndsName(char c) { return static_cast<unsigned char>(c) <= ' ' || c == '='; }

// Whether an equals sign is at `equals`, and what comes before it from `name` on is not empty and
// has neither white space nor another equals sign in it.
[[gnu::always_inline]] inline bool IsName(const char* name, const char* equals) {
  if (kZtHasVectors) {
    const auto block = ZtGet<ZtBlock>(name);
    const unsigned ends =
        ZtBits(reinterpret_cast<ZtBlock>(block <= ZtBlock{} + ' ') | ZtMatches(block, '='));
    if (ends) return name + ZtFirstBit(ends) == equals && *equals == '=' && name != equals;
    name += sizeof(ZtBlock);
  } else if (name == equals) {
    return false;
  }
  while (!EndsName(*name)) ++name;
  return name == equals && *equals == '=';
}

char* SkipBlank(char* at) {
  while (ZtIsBlank(*at)) ++at;
  return at;
}

}  // namespace

// The '>' is at `sign`; from `at` on are white space or a slash or both.
inline bool ScannedTag::Ends(char* at, char* sign) {
  const bool spaced = ZtIsBlank(*at);
  at = SkipBlank(at);
  close = sign;
  isEmpty = *at == '/' && at + 1 == sign;
  blankAtEnd = spaced && count > 0;
  return (isEmpty || at == sign) && (!spaced || count > 0);
}

// What comes after the name. In front of each opening quote is an equals sign, and in front of this
// a name after white space.
bool ScannedTag::ScanAttributes(ZtStructure& structure) {
  ZtStructure::Place place = structure.Enter(nameEnd);
  ScannedAttribute* attribute = attributes;
  char* at = nameEnd;
  char* sign = structure.NextSign(place);
  char quote = *sign;
  while (quote != '>') {
    char* attributeName = at + 1;
    if (*at != ' ' || ZtIsBlank(*attributeName)) {
      attributeName = SkipBlank(at);
      if (attributeName == at) return false;
    }
    if ((quote != '"' && quote != '\'') || attribute == attributes + kMostAttributes ||
        !IsName(attributeName, sign - 1)) {
      return false;
    }
    attribute->name = attributeName;
    attribute->nameEnd = sign - 1;
    attribute->value = sign + 1;
    while (*(sign = structure.NextSign(place)) != quote) {
      if (*sign == '>' || *sign == '\0') return false;
      if (*sign == '&') hasEntity = true;
    }
    attribute->valueEnd = sign;
    ++attribute;
    at = sign + 1;
    sign = structure.NextSign(place);
    quote = *sign;
  }
  count = static_cast<int>(attribute - attributes);
  return Ends(at, sign);
}
