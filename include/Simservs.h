// The schema decoder of a simservs document without its services.
#ifndef ZTXML_INCLUDE_SIMSERVS_H
#define ZTXML_INCLUDE_SIMSERVS_H

#include "ZtNamespaceDecoder.h"

/// Reads a simservs document without its services, with the prefixes of its document.
class ZT_API XMLSimservsDecoder : public ZtNamespaceDecoder {
 public:
  XMLSimservsDecoder();
};

#endif  // ZTXML_INCLUDE_SIMSERVS_H
