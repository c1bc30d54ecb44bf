// The schema decoder of resource lists.
#ifndef ZTXML_INCLUDE_RESOURCELISTS_H
#define ZTXML_INCLUDE_RESOURCELISTS_H

#include "ZtSchemaDecoder.h"

/// Reads a "resource-lists" document, with any prefixes.
class ZT_API XMLResourceListsDecoder : public ZtSchemaDecoder {
 public:
  XMLResourceListsDecoder();
};

#endif  // ZTXML_INCLUDE_RESOURCELISTS_H
