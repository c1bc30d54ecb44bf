// The schema decoder of GRUU information.
#ifndef ZTXML_INCLUDE_GRUU_H
#define ZTXML_INCLUDE_GRUU_H

#include "ZtSchemaDecoder.h"

/// Reads one "pub-gruu" or "temp-gruu" element, with any prefix.
class ZT_API XMLGruuDecoder : public ZtSchemaDecoder {
 public:
  XMLGruuDecoder();
};

#endif  // ZTXML_INCLUDE_GRUU_H
