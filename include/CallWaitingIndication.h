// The schema decoder of a "3gpp-ims" document.
#ifndef ZTXML_INCLUDE_CALLWAITINGINDICATION_H
#define ZTXML_INCLUDE_CALLWAITINGINDICATION_H

#include "ZtSchemaDecoder.h"

/// Reads a "3gpp-ims" document, with any prefixes.
class ZT_API XMLCallWaitingIndicationDecoder : public ZtSchemaDecoder {
 public:
  XMLCallWaitingIndicationDecoder();
};

#endif  // ZTXML_INCLUDE_CALLWAITINGINDICATION_H
