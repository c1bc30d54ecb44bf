// A provisioning document (OMA client provisioning), which is only read.
#ifndef ZTXML_INCLUDE_XMLWAPPROVISIONINGDOC_H
#define ZTXML_INCLUDE_XMLWAPPROVISIONINGDOC_H

#include "ztxml/XMLCharacteristic.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The root element "wap-provisioningdoc".
class zt_wap_provisioning_doc : public ZtTyped<zt_wap_provisioning_doc, ZtProvisioning> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of this document, XML_SCHEMA_WAP_PROVISIONING_DOC.
class WapProvisioningDocContext : public ZtDescribedBy<WapProvisioningDocContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class WapProvisioningDocDataBinder : public ZtDescribedBy<WapProvisioningDocContext, ZtFactory> {
 public:
  zt_characteristic* CreateCharacteristic() { return Make(); }
  zt_parm* CreateParm() { return Make(); }
};

/// In the exact profile there is nothing to write: Marshall returns null there.
class ZT_API WapProvisioningDocMarshall
    : public ZtDescribedBy<WapProvisioningDocContext, ZtMarshaller> {
 public:
  char* Marshall(XMLElement* root) override;
};

/// Reads "wap-provisioningdoc", with any prefixes.
class XMLWapProvisioningDocDecoder : public ZtDecoderOf<WapProvisioningDocContext> {};
/// Reads a zt_wap_provisioning_doc.
class WapProvisioningDocUnMarshaller
    : public ZtDescribedBy<WapProvisioningDocContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLWAPPROVISIONINGDOC_H
