// The schema decoder of an "ims-3gpp" document.
#ifndef ZTXML_INCLUDE_CWINDICATION_H
#define ZTXML_INCLUDE_CWINDICATION_H

#include "ZtSchemaDecoder.h"

/// Reads an "ims-3gpp" document, with any prefixes.
class ZT_API XMLCWIndicationDecoder : public ZtSchemaDecoder {
 public:
  XMLCWIndicationDecoder();
};

#endif  // ZTXML_INCLUDE_CWINDICATION_H
