// The indication that a call waits (3GPP TS 24.615).
//
// Elements own what they hold: setters copy texts, take objects, and free what they replace; null
// means absent. Texts are raw: callers escape them.
#ifndef ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H
#define ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The element "action".
class zt_ns_call_waiting_indication_action : public ZtTyped<zt_ns_call_waiting_indication_action> {
 public:
  ZT_API static const ZtElementType kType;
  /// The flag "call-waiting-indication"; null for none. A flag must be present to be written.
  int setCallWaitingIndicationValue(zt_empty_element_type* element) {
    return m_CallWaitingIndication.Set(element);
  }
  zt_empty_element_type* getCallWaitingIndicationValue() const { return m_CallWaitingIndication; }

 private:
  ZtChildOf<zt_empty_element_type> m_CallWaitingIndication;
};

/// The element "alternative-service".
class zt_ns_call_waiting_indication_alternative_service
    : public ZtTyped<zt_ns_call_waiting_indication_alternative_service> {
 public:
  ZT_API static const ZtElementType kType;
  /// What the device is to do.
  int setActionValue(zt_ns_call_waiting_indication_action* element) {
    return m_Action.Set(element);
  }
  zt_ns_call_waiting_indication_action* getActionValue() const { return m_Action; }

 private:
  ZtChildOf<zt_ns_call_waiting_indication_action> m_Action;
};

/// The root element "3gpp-ims".
class zt_3gpp_ims : public ZtTyped<zt_3gpp_ims, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "version"; 0 when absent.
  int setVersionValue(unsigned int value) { return m_Version.Set(value); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// The service.
  int setAlternativeServiceValue(zt_ns_call_waiting_indication_alternative_service* element) {
    return m_AlternativeService.Set(element);
  }
  zt_ns_call_waiting_indication_alternative_service* getAlternativeServiceValue() const {
    return m_AlternativeService;
  }

 private:
  ZtNumber m_Version;
  ZtChildOf<zt_ns_call_waiting_indication_alternative_service> m_AlternativeService;
};

/// The context of this document, XML_SCHEMA_CALL_WAITING_INDICATION.
class CallWaitingIndicationContext : public ZtDescribedBy<CallWaitingIndicationContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class ZT_API CallWaitingIndicationDataBinder
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtFactory> {
 public:
  zt_ns_call_waiting_indication_alternative_service* CreateAlternativeServiceElement() {
    return Make();
  }
  zt_ns_call_waiting_indication_action* CreateActionElement() { return Make(); }
  zt_empty_element_type* CreateCallWaitingIndicationElement();
};

/// Writes a zt_3gpp_ims. Its Add functions write one element each and return 1, or 0 on failure;
/// they work only while Marshall runs.
class ZT_API CallWaitingIndicationMarshaller
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtMarshaller> {
 public:
  int Add3gppImsElementToXml(zt_3gpp_ims* ims) { return Write(ims); }
  int AddAlternativeServiceElementToXml(
      zt_ns_call_waiting_indication_alternative_service* service) {
    return Write(service);
  }
  int AddActionElementToXml(zt_ns_call_waiting_indication_action* action) { return Write(action); }
  int AddCallWaitingIndicationElementToXml(zt_empty_element_type* flag);
};

/// Reads a "3gpp-ims" document, with any prefixes.
class XMLCallWaitingIndicationDecoder : public ZtDecoderOf<CallWaitingIndicationContext> {};
/// Reads a zt_3gpp_ims.
class CallWaitingIndicationUnMarshaller
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H
