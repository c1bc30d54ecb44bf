// The indication that a call waits (3GPP TS 24.615).
//
// Elements own what they hold: setters copy texts, take objects, and free what they replace; null
// means absent. Texts are raw: callers escape them.
#ifndef ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H
#define ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H

#include "XMLValueTypes.h"
#include "ZtDocument.h"

/// The element "action".
class ZT_API zt_ns_call_waiting_indication_action
    : public ZtTyped<zt_ns_call_waiting_indication_action> {
 public:
  static const ZtElementType kType;

  /// The flag "call-waiting-indication"; null for none. One that is not present cannot be written.
  int setCallWaitingIndicationValue(zt_empty_element_type* element) {
    return m_CallWaitingIndication.Set(element);
  }
  zt_empty_element_type* getCallWaitingIndicationValue() const {
    return static_cast<zt_empty_element_type*>(m_CallWaitingIndication.Get());
  }

 private:
  friend struct CallWaitingIndicationBinding;

  ZtChild m_CallWaitingIndication;
};

/// The element "alternative-service".
class ZT_API zt_ns_call_waiting_indication_alternative_service
    : public ZtTyped<zt_ns_call_waiting_indication_alternative_service> {
 public:
  static const ZtElementType kType;

  /// What is to be done.
  int setActionValue(zt_ns_call_waiting_indication_action* element) {
    return m_Action.Set(element);
  }
  zt_ns_call_waiting_indication_action* getActionValue() const {
    return static_cast<zt_ns_call_waiting_indication_action*>(m_Action.Get());
  }

 private:
  friend struct CallWaitingIndicationBinding;

  ZtChild m_Action;
};

/// The root element "3gpp-ims".
class ZT_API zt_3gpp_ims : public ZtTyped<zt_3gpp_ims, ZtObject> {
 public:
  static const ZtElementType kType;

  /// The attribute "version"; 0 when absent.
  int setVersionValue(unsigned int value) {
    m_Version = value;
    return 1;
  }
  unsigned int getVersionValue() const { return m_Version; }

  /// The service.
  int setAlternativeServiceValue(zt_ns_call_waiting_indication_alternative_service* element) {
    return m_AlternativeService.Set(element);
  }
  zt_ns_call_waiting_indication_alternative_service* getAlternativeServiceValue() const {
    return static_cast<zt_ns_call_waiting_indication_alternative_service*>(
        m_AlternativeService.Get());
  }

 private:
  friend struct CallWaitingIndicationBinding;

  unsigned m_Version = 0;
  ZtChild m_AlternativeService;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null without memory.
class ZT_API CallWaitingIndicationDataBinder : public XMLObjectFactory {
 public:
  XMLObject* CreateRootElement() override;
  zt_ns_call_waiting_indication_alternative_service* CreateAlternativeServiceElement();
  zt_ns_call_waiting_indication_action* CreateActionElement();
  zt_empty_element_type* CreateCallWaitingIndicationElement();
};

class CallWaitingIndicationContext;

/// Writes a zt_3gpp_ims. Besides Marshall, the steps that write one element each (1 written, 0
/// failed), which only a running Marshall can use.
class ZT_API CallWaitingIndicationMarshaller
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtMarshaller> {
 public:
  int Add3gppImsElementToXml(zt_3gpp_ims* ims);
  int AddAlternativeServiceElementToXml(zt_ns_call_waiting_indication_alternative_service* service);
  int AddActionElementToXml(zt_ns_call_waiting_indication_action* action);
  int AddCallWaitingIndicationElementToXml(zt_empty_element_type* flag);
};

/// Reads a zt_3gpp_ims.
class ZT_API CallWaitingIndicationUnMarshaller
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtUnMarshaller> {};

/// The context of this document, XML_SCHEMA_CALL_WAITING_INDICATION.
class ZT_API CallWaitingIndicationContext
    : public ZtDescribedBy<CallWaitingIndicationContext, ZtContext> {
 public:
  static const ZtDocument kDocument;
};

#endif  // ZTXML_INCLUDE_XMLCALLWAITINGINDICATION_H
