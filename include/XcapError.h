// The schema decoder of XCAP errors.
#ifndef ZTXML_INCLUDE_XCAPERROR_H
#define ZTXML_INCLUDE_XCAPERROR_H

#include "ZtSchemaDecoder.h"

/// Reads an "xcap-error" document. Names are taken without their prefixes.
class ZT_API XMLXcapErrorDecoder : public ZtSchemaDecoder {
 public:
  XMLXcapErrorDecoder();
};

#endif  // ZTXML_INCLUDE_XCAPERROR_H
