// The schema decoder of a "rcs-terms-info" document.
#ifndef ZTXML_INCLUDE_RCSTERMSINFO_H
#define ZTXML_INCLUDE_RCSTERMSINFO_H

#include "ZtSchemaDecoder.h"

/// Reads a "rcs-terms-info" document, with any prefixes.
class ZT_API XMLRcsTermsInfoDecoder : public ZtSchemaDecoder {
 public:
  XMLRcsTermsInfoDecoder();
};

#endif  // ZTXML_INCLUDE_RCSTERMSINFO_H
