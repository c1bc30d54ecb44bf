// The schema decoder of registration information.
#ifndef ZTXML_INCLUDE_REGINFODECODER_H
#define ZTXML_INCLUDE_REGINFODECODER_H

#include "ZtSchemaDecoder.h"

/// Reads a "reginfo" document, with any prefixes, and the GRUU elements inside it.
class ZT_API XMLReginfoDecoder : public ZtSchemaDecoder {
 public:
  XMLReginfoDecoder();
};

#endif  // ZTXML_INCLUDE_REGINFODECODER_H
