// The schema decoder of a terminating-identity-presentation service.
#ifndef ZTXML_INCLUDE_TIP_H
#define ZTXML_INCLUDE_TIP_H

#include "ZtNamespaceDecoder.h"

/// Reads a terminating-identity-presentation service, with the prefixes of its document.
class ZT_API XMLTIPDecoder : public ZtNamespaceDecoder {
 public:
  XMLTIPDecoder();
};

#endif  // ZTXML_INCLUDE_TIP_H
