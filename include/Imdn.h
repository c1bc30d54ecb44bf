// The schema decoder of message disposition notifications.
#ifndef ZTXML_INCLUDE_IMDN_H
#define ZTXML_INCLUDE_IMDN_H

#include "ZtSchemaDecoder.h"

/// Reads an "imdn" document, with any prefixes.
class ZT_API XMLImdnDecoder : public ZtSchemaDecoder {
 public:
  XMLImdnDecoder();
};

#endif  // ZTXML_INCLUDE_IMDN_H
