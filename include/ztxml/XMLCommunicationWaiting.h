// Communication waiting (3GPP TS 24.615): a service that is only switched on and off.
#ifndef ZTXML_INCLUDE_XMLCOMMUNICATIONWAITING_H
#define ZTXML_INCLUDE_XMLCOMMUNICATIONWAITING_H

#include "ztxml/XMLSimservsXcap.h"
#include "ztxml/ZtNamespaceDecoder.h"
#include "ztxml/ZtNamespaceDocument.h"

/// The element "communication-waiting".
class zt_communication_waiting : public ZtTyped<zt_communication_waiting, zt_ns_xcap_simservType> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of communication waiting, XML_SCHEMA_COMMUNICATION_WAITING.
class CommunicationWaitingContext
    : public ZtDescribedBy<CommunicationWaitingContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes an empty zt_communication_waiting.
class CommunicationWaitingDataBinder
    : public ZtDescribedBy<CommunicationWaitingContext, ZtFactory> {
 public:
};

/// Writes the service as an XCAP fragment.
class ZT_API Communication_waitingMarshaller
    : public ZtDescribedBy<CommunicationWaitingContext, ZtNamespaceMarshaller> {
 public:
  Communication_waitingMarshaller();
  /// Writes the element. Returns 1, or 0 on failure; works only while Marshall runs.
  int AddCommunication_waitingElementToXml(zt_communication_waiting* service) {
    return Write(service);
  }
};

/// Reads the service under the prefixes that its document declares.
class XMLCommunicationWaitingDecoder
    : public ZtDecoderOf<CommunicationWaitingContext, ZtNamespaceDecoder> {};
/// Reads the service from an XCAP fragment.
class CommunicationWaitingUnMarshaller
    : public ZtDescribedBy<CommunicationWaitingContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLCOMMUNICATIONWAITING_H
