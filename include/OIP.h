// The schema decoder of an originating-identity-presentation service.
#ifndef ZTXML_INCLUDE_OIP_H
#define ZTXML_INCLUDE_OIP_H

#include "ZtNamespaceDecoder.h"

/// Reads an originating-identity-presentation service, with the prefixes of its document.
class ZT_API XMLOIPDecoder : public ZtNamespaceDecoder {
 public:
  XMLOIPDecoder();
};

#endif  // ZTXML_INCLUDE_OIP_H
