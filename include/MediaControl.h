// The schema decoder of a "media_control" document.
#ifndef ZTXML_INCLUDE_MEDIACONTROL_H
#define ZTXML_INCLUDE_MEDIACONTROL_H

#include "ZtSchemaDecoder.h"

/// Reads a "media_control" document, with any prefixes.
class ZT_API XMLMediaControlDecoder : public ZtSchemaDecoder {
 public:
  XMLMediaControlDecoder();
};

#endif  // ZTXML_INCLUDE_MEDIACONTROL_H
