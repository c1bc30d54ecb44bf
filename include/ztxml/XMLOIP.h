// Originating identity presentation (3GPP TS 24.607): a service that is only switched on and off.
#ifndef ZTXML_INCLUDE_XMLOIP_H
#define ZTXML_INCLUDE_XMLOIP_H

#include "ztxml/XMLSimservsXcap.h"
#include "ztxml/ZtNamespaceDecoder.h"
#include "ztxml/ZtNamespaceDocument.h"

/// The element "originating-identity-presentation".
class zt_originating_identity_presentation
    : public ZtTyped<zt_originating_identity_presentation, zt_ns_xcap_simservType> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of originating identity presentation, XML_SCHEMA_OIP.
class OIPContext : public ZtDescribedBy<OIPContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes an empty zt_originating_identity_presentation.
class OIPDataBinder : public ZtDescribedBy<OIPContext, ZtFactory> {
 public:
};

/// Writes the service as an XCAP fragment.
class ZT_API OIPMarshaller : public ZtDescribedBy<OIPContext, ZtNamespaceMarshaller> {
 public:
  OIPMarshaller();
  /// Writes the element. Returns 1, or 0 on failure; works only while Marshall runs.
  int AddOIPElementToXml(zt_originating_identity_presentation* service) { return Write(service); }
};

/// Reads the service under the prefixes that its document declares.
class XMLOIPDecoder : public ZtDecoderOf<OIPContext, ZtNamespaceDecoder> {};
/// Reads the service from an XCAP fragment.
class OIPUnMarshaller : public ZtDescribedBy<OIPContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLOIP_H
