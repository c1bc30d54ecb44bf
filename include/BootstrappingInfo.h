// The schema decoder of a "BootstrappingInfo" document.
#ifndef ZTXML_INCLUDE_BOOTSTRAPPINGINFO_H
#define ZTXML_INCLUDE_BOOTSTRAPPINGINFO_H

#include "ZtSchemaDecoder.h"

/// Reads a "BootstrappingInfo" document, with any prefixes.
class ZT_API XMLBootstrappingInfoDecoder : public ZtSchemaDecoder {
 public:
  XMLBootstrappingInfoDecoder();
};

#endif  // ZTXML_INCLUDE_BOOTSTRAPPINGINFO_H
