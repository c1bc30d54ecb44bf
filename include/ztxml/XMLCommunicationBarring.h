// Communication barring (3GPP TS 24.611): which incoming or outgoing calls are refused.
#ifndef ZTXML_INCLUDE_XMLCOMMUNICATIONBARRING_H
#define ZTXML_INCLUDE_XMLCOMMUNICATIONBARRING_H

#include "ztxml/XMLCommonPolicy.h"
#include "ztxml/ZtNamespaceDecoder.h"

/// Which of the two services an object factory makes.
enum XML_COMMUNICATION_BARRING_TYPE : int {
  XML_COMMUNICATION_BARRING_INCOMING = 1,
  XML_COMMUNICATION_BARRING_OUTGOING = 2,
  XML_COMMUNICATION_BARRING_NONE = 3  ///< what a fresh factory holds
};

/// The action "allow".
class zt_allow_action_type : public ZtTyped<zt_allow_action_type> {
 public:
  ZT_API static const ZtElementType kType;
  /// 1 or 0 (at first): whether the call goes through.
  int setAllowValue(int allow) { return m_Allow.Set(allow ? 1 : 0); }
  int getAllowValue() const { return m_Allow.Get() ? 1 : 0; }
  std::optional<bool> value() const { return m_Allow.Stated<bool>(); }

 private:
  ZtNumber m_Allow;
};

/// What both services have: the rules.
class ZtCommunicationBarring : public zt_ns_xcap_simservType {
 public:
  ZT_INLINE ~ZtCommunicationBarring() override = default;

  /// Takes the rules; null for none. Rules that cannot be written cut the rule set short; the
  /// service is written even so.
  int setRuleSetValue(zt_ns_common_policy_ruleset* ruleset) { return m_RuleSet.Set(ruleset); }
  zt_ns_common_policy_ruleset* getRuleSetValue() const { return m_RuleSet; }

 private:
  friend struct CommunicationBarringBinding;

  ZtChildOf<zt_ns_common_policy_ruleset> m_RuleSet;
};

/// The root element "incoming-communication-barring".
class zt_incoming_communication_barring
    : public ZtTyped<zt_incoming_communication_barring, ZtCommunicationBarring> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The root element "outgoing-communication-barring".
class zt_outgoing_communication_barring
    : public ZtTyped<zt_outgoing_communication_barring, ZtCommunicationBarring> {
 public:
  ZT_API static const ZtElementType kType;
};

/// The context of communication barring, XML_SCHEMA_COMMUNICATION_BARRING.
class CommunicationBarringContext
    : public ZtDescribedBy<CommunicationBarringContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class ZT_API CommunicationBarringDataBinder
    : public ZtDescribedBy<CommunicationBarringContext, ZtPolicyDataBinder> {
 public:
  /// Chooses what CreateRootElement makes, incoming or outgoing. Returns 1; 0 for any other value,
  /// which changes nothing.
  int setCBType(XML_COMMUNICATION_BARRING_TYPE type);
  /// Null also before the first setCBType.
  XMLObject* CreateRootElement() override;
  zt_allow_action_type* CreateAllowTypeElement() { return Make(); }

 private:
  XML_COMMUNICATION_BARRING_TYPE m_CBType = XML_COMMUNICATION_BARRING_NONE;
};

/// Writes a service, its rule set, a rule, conditions, actions, a flag or an except as an XCAP
/// fragment, without declarations: the document that it goes into has them.
class ZT_API Communication_barringMarshaller
    : public ZtDescribedBy<CommunicationBarringContext, ZtPolicyMarshaller> {
 public:
  Communication_barringMarshaller();
  int AddIncoming_communication_barringElementToXml(zt_incoming_communication_barring* barring) {
    return Write(barring);
  }
  int AddOutgoing_communication_barringElementToXml(zt_outgoing_communication_barring* barring) {
    return Write(barring);
  }

 private:
  const ZtPolicyTypes& Policy() const override;
};

/// Reads either service under the prefixes that its document declares.
class XMLCommunicationBarringDecoder
    : public ZtDecoderOf<CommunicationBarringContext, ZtNamespaceDecoder> {};
/// Reads either service from an XCAP fragment; the root element tells which, whatever setCBType
/// chose.
class CommunicationBarringUnMarshaller
    : public ZtDescribedBy<CommunicationBarringContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLCOMMUNICATIONBARRING_H
