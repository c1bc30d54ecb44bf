// Terminating identity presentation (3GPP TS 24.608): a service that is only switched on and off.
#ifndef ZTXML_INCLUDE_XMLTIP_H
#define ZTXML_INCLUDE_XMLTIP_H

#include "ztxml/XMLSimservsXcap.h"
#include "ztxml/ZtNamespaceDecoder.h"
#include "ztxml/ZtNamespaceDocument.h"

/// The element "terminating-identity-presentation".
class zt_terminating_identity_presentation
    : public ZtTyped<zt_terminating_identity_presentation, zt_ns_xcap_simservType> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of terminating identity presentation, XML_SCHEMA_TIP.
class TIPContext : public ZtDescribedBy<TIPContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes an empty zt_terminating_identity_presentation.
class TIPDataBinder : public ZtDescribedBy<TIPContext, ZtFactory> {
 public:
};

/// Writes the service as an XCAP fragment.
class ZT_API TIPMarshaller : public ZtDescribedBy<TIPContext, ZtNamespaceMarshaller> {
 public:
  TIPMarshaller();
  /// Writes the element. Returns 1, or 0 on failure; works only while Marshall runs.
  int AddTIPElementToXml(zt_terminating_identity_presentation* service) { return Write(service); }
};

/// Reads the service under the prefixes that its document declares.
class XMLTIPDecoder : public ZtDecoderOf<TIPContext, ZtNamespaceDecoder> {};
/// Reads the service from an XCAP fragment.
class TIPUnMarshaller : public ZtDescribedBy<TIPContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLTIP_H
