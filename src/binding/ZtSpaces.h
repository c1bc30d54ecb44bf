// The namespaces that documents, types and rows belong to.
#ifndef ZTXML_SRC_BINDING_ZTSPACES_H
#define ZTXML_SRC_BINDING_ZTSPACES_H

#include <cstdint>

#include "binding/ZtNames.h"
#include "text/ZtNamespaceScope.h"

// The library's own namespaces, numbered from 1 on.
enum ZtKnownSpace : ZtSpace {
  kZtSpacesBegin = kZtNoSpace,
#define ZT_SPACE(id, uri, prefix) id,
#include "binding/ZtSpaces.inc"
#undef ZT_SPACE
  kZtSpacesEnd,
};

// Their URIs in that order.
constexpr unsigned kZtKnownSpaces = kZtSpacesEnd - 1;
extern const ZtPiece kZtSpaceUris[kZtKnownSpaces];

inline ZtPiece ZtUriOf(ZtSpace space) { return kZtSpaceUris[space - 1]; }
// The known namespace with this URI; none for others and for null.
ZtSpace ZtSpaceOfUri(ZtPiece uri);
// The one that the tables' `prefix` stands for; none for ZT_NULL.
ZtSpace ZtSpaceOfPrefix(ZtNameId prefix);
// The prefix that the library declares for a known namespace.
ZtNameId ZtPrefixOf(ZtSpace space);

#endif  // ZTXML_SRC_BINDING_ZTSPACES_H
