// The schema decoder of resource list meta-information.
#ifndef ZTXML_INCLUDE_LIST_H
#define ZTXML_INCLUDE_LIST_H

#include "ZtSchemaDecoder.h"

/// Reads a "list" document, with any prefixes.
class ZT_API XMLListDecoder : public ZtSchemaDecoder {
 public:
  XMLListDecoder();
};

#endif  // ZTXML_INCLUDE_LIST_H
