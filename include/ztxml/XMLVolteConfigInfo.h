// A VoLTE configuration (OMA client provisioning), which is only read.
#ifndef ZTXML_INCLUDE_XMLVOLTECONFIGINFO_H
#define ZTXML_INCLUDE_XMLVOLTECONFIGINFO_H

#include "ztxml/XMLCharacteristic.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The root element, "volte-config-info" or "wap-provisioningdoc"; their content is alike.
class zt_volte_config_info : public ZtTyped<zt_volte_config_info, ZtProvisioning> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of this document, XML_SCHEMA_VOLTE_CONFIG_INFO.
class VolteConfigInfoContext : public ZtDescribedBy<VolteConfigInfoContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class VolteConfigInfoDataBinder : public ZtDescribedBy<VolteConfigInfoContext, ZtFactory> {
 public:
  zt_characteristic* CreateCharacteristic() { return Make(); }
  zt_parm* CreateParm() { return Make(); }
};

/// In the exact profile there is nothing to write: Marshall returns null there.
class ZT_API VolteConfigInfoMarshall : public ZtDescribedBy<VolteConfigInfoContext, ZtMarshaller> {
 public:
  char* Marshall(XMLElement* root) override;
};

/// Reads a "volte-config-info" or "wap-provisioningdoc" document, with any prefixes.
class XMLVolteConfigInfoDecoder : public ZtDecoderOf<VolteConfigInfoContext> {};
/// Reads a zt_volte_config_info.
class VolteConfigInfoUnMarshaller : public ZtDescribedBy<VolteConfigInfoContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLVOLTECONFIGINFO_H
