// The schema decoder of a VoLTE configuration.
#ifndef ZTXML_INCLUDE_VOLTECONFIGINFO_H
#define ZTXML_INCLUDE_VOLTECONFIGINFO_H

#include "ZtSchemaDecoder.h"

/// Reads "volte-config-info", or "wap-provisioningdoc" with the same content, with any prefixes.
class ZT_API XMLVolteConfigInfoDecoder : public ZtSchemaDecoder {
 public:
  XMLVolteConfigInfoDecoder();
};

#endif  // ZTXML_INCLUDE_VOLTECONFIGINFO_H
