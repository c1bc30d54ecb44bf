// The schema decoder of a provisioning document.
#ifndef ZTXML_INCLUDE_WAPPROVISIONINGDOC_H
#define ZTXML_INCLUDE_WAPPROVISIONINGDOC_H

#include "ZtSchemaDecoder.h"

/// Reads "wap-provisioningdoc", with any prefixes.
class ZT_API XMLWapProvisioningDocDecoder : public ZtSchemaDecoder {
 public:
  XMLWapProvisioningDocDecoder();
};

#endif  // ZTXML_INCLUDE_WAPPROVISIONINGDOC_H
