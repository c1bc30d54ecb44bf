// Originating identity presentation (3GPP TS 24.607): a service that is only switched on and off.
#ifndef ZTXML_INCLUDE_XMLOIP_H
#define ZTXML_INCLUDE_XMLOIP_H

#include "XMLSimservsXcap.h"
#include "ZtNamespaceDocument.h"

/// The element "originating-identity-presentation".
class ZT_API zt_originating_identity_presentation : public zt_ns_xcap_simservType {
 public:
  static const ZtElementType kType;

 private:
  const ZtElementType& Type() const override;
};

/// Makes an empty zt_originating_identity_presentation.
class ZT_API OIPDataBinder : public XMLObjectFactory {
 public:
  XMLObject* CreateRootElement() override;
};

/// Writes the service as an XCAP fragment.
class ZT_API OIPMarshaller : public ZtNamespaceMarshaller {
 public:
  OIPMarshaller();
  /// Writes the element (1 written, 0 failed), which only a running Marshall can use.
  int AddOIPElementToXml(zt_originating_identity_presentation* service);

 private:
  const ZtDocument& Document() const override;
};

/// Reads the service from an XCAP fragment.
class ZT_API OIPUnMarshaller : public ZtUnMarshaller {
  const ZtDocument& Document() const override;
};

/// The context of originating identity presentation, XML_SCHEMA_OIP.
class ZT_API OIPContext : public ZtNamespaceContext {
  const ZtDocument& Document() const override;
};

#endif  // ZTXML_INCLUDE_XMLOIP_H
