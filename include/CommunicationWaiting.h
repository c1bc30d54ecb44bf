// The schema decoder of a communication-waiting service.
#ifndef ZTXML_INCLUDE_COMMUNICATIONWAITING_H
#define ZTXML_INCLUDE_COMMUNICATIONWAITING_H

#include "ZtNamespaceDecoder.h"

/// Reads a communication-waiting service, with the prefixes of its document.
class ZT_API XMLCommunicationWaitingDecoder : public ZtNamespaceDecoder {
 public:
  XMLCommunicationWaitingDecoder();
};

#endif  // ZTXML_INCLUDE_COMMUNICATIONWAITING_H
