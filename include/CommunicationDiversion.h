// The schema decoder of a communication-diversion service.
#ifndef ZTXML_INCLUDE_COMMUNICATIONDIVERSION_H
#define ZTXML_INCLUDE_COMMUNICATIONDIVERSION_H

#include "ZtNamespaceDecoder.h"

/// Reads a communication-diversion service, with the prefixes of its document.
class ZT_API XMLCommunicationDiversionDecoder : public ZtNamespaceDecoder {
 public:
  XMLCommunicationDiversionDecoder();
};

#endif  // ZTXML_INCLUDE_COMMUNICATIONDIVERSION_H
