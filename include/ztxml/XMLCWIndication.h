// The 3GPP IMS body with an alternative service (3GPP TS 24.229).
//
// Elements own what they hold: setters copy texts, take objects, and free what they replace; null
// means absent. Texts are raw: callers escape them.
#ifndef ZTXML_INCLUDE_XMLCWINDICATION_H
#define ZTXML_INCLUDE_XMLCWINDICATION_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The element "alternative-service".
class zt_alternative_service : public ZtTyped<zt_alternative_service> {
 public:
  ZT_API static const ZtElementType kType;
  /// The kind of service, e.g. "restoration". Here and below only text is kept: where a document
  /// has an element instead ("<emergency/>"), the value is empty.
  int setTypeValue(const char* text) { return m_Type.Assign(text); }
  const char* getTypeValue() const { return m_Type.Get(); }
  /// Why the service is indicated.
  int setReasonValue(const char* text) { return m_Reason.Assign(text); }
  const char* getReasonValue() const { return m_Reason.Get(); }
  /// What the device is to do.
  int setActionValue(const char* text) { return m_Action.Assign(text); }
  const char* getActionValue() const { return m_Action.Get(); }

 private:
  ZtText m_Type;
  ZtText m_Reason;
  ZtText m_Action;
};

/// The root element "ims-3gpp".
class zt_ims_3gpp : public ZtTyped<zt_ims_3gpp, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "version"; 0 when absent.
  int setVersionValue(unsigned int value) { return m_Version.Set(value); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// The service.
  int setAlternativeServiceValue(zt_alternative_service* element) {
    return m_AlternativeService.Set(element);
  }
  zt_alternative_service* getAlternativeServiceValue() const { return m_AlternativeService; }
  /// Further information about the service.
  int setServiceInfoValue(const char* text) { return m_ServiceInfo.Assign(text); }
  const char* getServiceInfoValue() const { return m_ServiceInfo.Get(); }

 private:
  ZtNumber m_Version;
  ZtChildOf<zt_alternative_service> m_AlternativeService;
  ZtText m_ServiceInfo;
};

/// The context of this document, XML_SCHEMA_CW_INDICATION.
class CWIndicationContext : public ZtDescribedBy<CWIndicationContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class CWIndicationDataBinder : public ZtDescribedBy<CWIndicationContext, ZtFactory> {
 public:
  zt_alternative_service* CreateAlternativeServiceElement() { return Make(); }
};

/// Writes a zt_ims_3gpp. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class CWIndicationMarshaller : public ZtDescribedBy<CWIndicationContext, ZtMarshaller> {
 public:
  int AddIms3gppElementToXml(zt_ims_3gpp* ims) { return Write(ims); }
  int AddAlternativeServiceElementToXml(zt_alternative_service* service) { return Write(service); }
};

/// Reads an "ims-3gpp" document, with any prefixes.
class XMLCWIndicationDecoder : public ZtDecoderOf<CWIndicationContext> {};
/// Reads a zt_ims_3gpp.
class CWIndicationUnMarshaller : public ZtDescribedBy<CWIndicationContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLCWINDICATION_H
