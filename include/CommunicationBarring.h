// The schema decoder of a communication-barring service.
#ifndef ZTXML_INCLUDE_COMMUNICATIONBARRING_H
#define ZTXML_INCLUDE_COMMUNICATIONBARRING_H

#include "ZtNamespaceDecoder.h"

/// Reads a communication-barring service, with the prefixes of its document.
class ZT_API XMLCommunicationBarringDecoder : public ZtNamespaceDecoder {
 public:
  XMLCommunicationBarringDecoder();
};

#endif  // ZTXML_INCLUDE_COMMUNICATIONBARRING_H
