// The schema decoder of presence documents.
#ifndef ZTXML_INCLUDE_PRESENCE_H
#define ZTXML_INCLUDE_PRESENCE_H

#include "ZtSchemaDecoder.h"

/// Reads a "presence" document, with any prefixes.
class ZT_API XMLPresenceDecoder : public ZtSchemaDecoder {
 public:
  XMLPresenceDecoder();
};

#endif  // ZTXML_INCLUDE_PRESENCE_H
