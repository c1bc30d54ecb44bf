#include "binding/ZtSpaces.h"

#include "base/ZtBytes.h"

namespace {

constexpr e_XmlStrRef kPrefixes[kZtKnownSpaces] = {
#define ZT_SPACE(id, uri, prefix) prefix,
#include "binding/ZtSpaces.inc"
#undef ZT_SPACE
};

}  // namespace

const ZtPiece kZtSpaceUris[kZtKnownSpaces] = {
#define ZT_SPACE(id, uri, prefix) {uri, sizeof(uri) - 1},
#include "binding/ZtSpaces.inc"
#undef ZT_SPACE
};

ZtSpace ZtSpaceOfUri(ZtPiece uri) {
  for (ZtSpace space = 1; space <= kZtKnownSpaces; ++space) {
    if (ZtEqual(ZtUriOf(space), uri)) return space;
  }
  return kZtNoSpace;
}

ZtSpace ZtSpaceOfPrefix(ZtNameId prefix) {
  if (prefix.IsNone()) return kZtNoSpace;
  ZtSpace space = 1;
  while (space <= kZtKnownSpaces && prefix != kPrefixes[space - 1]) ++space;
  return space <= kZtKnownSpaces ? space : ZtSpace{kZtNoSpace};
}

ZtNameId ZtPrefixOf(ZtSpace space) { return kPrefixes[space - 1]; }
