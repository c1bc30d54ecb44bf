// Communication diversion, call forwarding (3GPP TS 24.604): when a call is forwarded, where to,
// and who gets to know of it.
#ifndef ZTXML_INCLUDE_XMLCOMMUNICATIONDIVERSION_H
#define ZTXML_INCLUDE_XMLCOMMUNICATIONDIVERSION_H

#include "ztxml/XMLCommonPolicy.h"
#include "ztxml/ZtNamespaceDecoder.h"

/// The element "NoReplyTimer": how long a call rings before a rule with "no-answer" holds.
class ZT_API zt_NoReplyTimer : public ZtTyped<zt_NoReplyTimer, ZtObject> {
 public:
  static const ZtElementType kType;

  static constexpr unsigned kLeast = 5;   ///< seconds
  static constexpr unsigned kMost = 180;  ///< seconds

  /// Seconds, kLeast to kMost. Returns 1; 0 for any other value, which changes nothing.
  int setNoReplyTimerValue(unsigned int seconds);
  /// Seconds; 0 when nothing was set.
  unsigned int getNoReplyTimerValue() const { return m_Seconds; }
  std::optional<std::uint32_t> value() const { return m_Seconds.Stated<std::uint32_t>(); }

 private:
  ZtNumber m_Seconds;
};

/// What a party gets to know of an identity.
enum zt_reveal_enum : unsigned {
  ZT_REVEAL_FALSE,
  ZT_REVEAL_NOT_REVEAL_GRUU,  ///< the identity, but no GRUU
  ZT_REVEAL_TRUE,
  ZT_REVEAL_UNSET  ///< not written
};

/// The action "forward-to". Its switches are 1, 0 or, when unset (at first, and not written), -1;
/// any other number sets them to 0.
class zt_ns_xcap_forward_to_type : public ZtTyped<zt_ns_xcap_forward_to_type> {
 public:
  ZT_API static const ZtElementType kType;
  /// The URI that calls are forwarded to (copied; raw text, to be escaped by the caller), null for
  /// none.
  int setTargetValue(const char* target) { return m_Target.Assign(target); }
  const char* getTargetValue() const { return m_Target.Get(); }
  /// Whether the caller is told of the diversion.
  int setNotifyCallerValue(int notify) { return m_NotifyCaller.Set(Notify(notify)); }
  int getNotifyCallerValue() const { return m_NotifyCaller; }
  std::optional<bool> notifyCaller() const { return m_NotifyCaller.Stated<bool>(); }
  /// What the caller gets to know of the target.
  int setRevealIdentityToCallerValue(zt_reveal_enum reveal) {
    return m_RevealIdentityToCaller.Set(reveal);
  }
  zt_reveal_enum getRevealIdentityToCallerValue() const { return m_RevealIdentityToCaller; }
  std::optional<zt_reveal_enum> revealIdentityToCaller() const {
    return m_RevealIdentityToCaller.Stated(ZT_REVEAL_UNSET);
  }
  /// What the caller gets to know of the served user who diverts.
  int setRevealServedUserIdentityToCallerValue(zt_reveal_enum reveal) {
    return m_RevealServedUserIdentityToCaller.Set(reveal);
  }
  zt_reveal_enum getRevealServedUserIdentityToCallerValue() const {
    return m_RevealServedUserIdentityToCaller;
  }
  std::optional<zt_reveal_enum> revealServedUserIdentityToCaller() const {
    return m_RevealServedUserIdentityToCaller.Stated(ZT_REVEAL_UNSET);
  }
  /// Whether the served user is told of each diversion.
  int setNotifyServedUserValue(int notify) { return m_NotifyServedUser.Set(Notify(notify)); }
  int getNotifyServedUserValue() const { return m_NotifyServedUser; }
  std::optional<bool> notifyServedUser() const { return m_NotifyServedUser.Stated<bool>(); }
  /// Whether the served user is reminded of the diversion on outgoing calls.
  int setNotifyServedUserOnOutboundCallValue(int notify) {
    return m_NotifyServedUserOnOutboundCall.Set(Notify(notify));
  }
  int getNotifyServedUserOnOutboundCallValue() const { return m_NotifyServedUserOnOutboundCall; }
  std::optional<bool> notifyServedUserOnOutboundCall() const {
    return m_NotifyServedUserOnOutboundCall.Stated<bool>();
  }
  /// What the target gets to know of the served user.
  int setRevealIdentityToTargetValue(zt_reveal_enum reveal) {
    return m_RevealIdentityToTarget.Set(reveal);
  }
  zt_reveal_enum getRevealIdentityToTargetValue() const { return m_RevealIdentityToTarget; }
  std::optional<zt_reveal_enum> revealIdentityToTarget() const {
    return m_RevealIdentityToTarget.Stated(ZT_REVEAL_UNSET);
  }

 private:
  static constexpr unsigned kUnset = static_cast<unsigned>(-1);
  static unsigned Notify(int notify) { return notify == -1 ? kUnset : notify == 1 ? 1 : 0; }

  ZtText m_Target;
  ZtNumber m_NotifyCaller = kUnset;
  ZtNumber m_RevealIdentityToCaller = ZT_REVEAL_UNSET;
  ZtNumber m_RevealServedUserIdentityToCaller = ZT_REVEAL_UNSET;
  ZtNumber m_NotifyServedUser = kUnset;
  ZtNumber m_NotifyServedUserOnOutboundCall = kUnset;
  ZtNumber m_RevealIdentityToTarget = ZT_REVEAL_UNSET;
};

/// The root element "communication-diversion".
class zt_communication_diversion
    : public ZtTyped<zt_communication_diversion, zt_ns_xcap_simservType> {
 public:
  ZT_API static const ZtElementType kType;
  /// Takes the timer; null for none.
  int setNoReplyTimerValue(zt_NoReplyTimer* timer) { return m_NoReplyTimer.Set(timer); }
  zt_NoReplyTimer* getNoReplyTimerValue() const { return m_NoReplyTimer; }
  /// Takes the rules; null for none. Rules that cannot be written cut the rule set short; the
  /// service is written even so.
  int setRuleSetValue(zt_ns_common_policy_ruleset* ruleset) { return m_RuleSet.Set(ruleset); }
  zt_ns_common_policy_ruleset* getRuleSetValue() const { return m_RuleSet; }

 private:
  ZtChildOf<zt_NoReplyTimer> m_NoReplyTimer;
  ZtChildOf<zt_ns_common_policy_ruleset> m_RuleSet;
};

/// The context of communication diversion, XML_SCHEMA_COMMUNICATION_DIVERSION.
class CommunicationDiversionContext
    : public ZtDescribedBy<CommunicationDiversionContext, ZtNamespaceContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class CommunicationDiversionDataBinder
    : public ZtDescribedBy<CommunicationDiversionContext, ZtPolicyDataBinder> {
 public:
  zt_ns_xcap_forward_to_type* CreateForwardToTypeElement() { return Make(); }
  zt_NoReplyTimer* CreateNoReplyTimerElement() { return Make(); }
};

/// Writes the service, its timer, rule set, a rule, conditions, actions, a forward-to or a flag as
/// an XCAP fragment, without declarations: the document that it goes into has them.
class ZT_API Communication_diversionMarshaller
    : public ZtDescribedBy<CommunicationDiversionContext, ZtPolicyMarshaller> {
 public:
  Communication_diversionMarshaller();
  int AddCommunication_diversionElementToXml(zt_communication_diversion* diversion) {
    return Write(diversion);
  }
  /// A null timer is written as nothing and succeeds.
  int AddNoReplyTimerElementToXml(zt_NoReplyTimer* timer);
  int AddForwardToElementtoXml(zt_ns_xcap_forward_to_type* forwardTo) { return Write(forwardTo); }

 private:
  const ZtPolicyTypes& Policy() const override;
};

/// Reads the service under the prefixes that its document declares.
class XMLCommunicationDiversionDecoder
    : public ZtDecoderOf<CommunicationDiversionContext, ZtNamespaceDecoder> {};
/// Reads the service from an XCAP fragment.
class CommunicationDiversionUnMarshaller
    : public ZtDescribedBy<CommunicationDiversionContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLCOMMUNICATIONDIVERSION_H
