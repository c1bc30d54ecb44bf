// The schema decoder of a "file" document.
#ifndef ZTXML_INCLUDE_FILE_H
#define ZTXML_INCLUDE_FILE_H

#include "ZtSchemaDecoder.h"

/// Reads a "file" document, with any prefixes.
class ZT_API XMLFileDecoder : public ZtSchemaDecoder {
 public:
  XMLFileDecoder();
};

#endif  // ZTXML_INCLUDE_FILE_H
