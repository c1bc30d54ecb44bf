// The schema decoder of resource list services.
#ifndef ZTXML_INCLUDE_RLSSERVICES_H
#define ZTXML_INCLUDE_RLSSERVICES_H

#include "ZtSchemaDecoder.h"

/// Reads a "rls-services" document, with any prefixes.
class ZT_API XMLRlsServicesDecoder : public ZtSchemaDecoder {
 public:
  XMLRlsServicesDecoder();
};

#endif  // ZTXML_INCLUDE_RLSSERVICES_H
