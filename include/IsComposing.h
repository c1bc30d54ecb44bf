// The schema decoder of is-composing indications.
#ifndef ZTXML_INCLUDE_ISCOMPOSING_H
#define ZTXML_INCLUDE_ISCOMPOSING_H

#include "ZtSchemaDecoder.h"

/// Reads an "isComposing" document. Names are taken as they stand in it: with a prefix they are
/// unknown.
class ZT_API XMLIsComposingDecoder : public ZtSchemaDecoder {
 public:
  XMLIsComposingDecoder();
};

#endif  // ZTXML_INCLUDE_ISCOMPOSING_H
