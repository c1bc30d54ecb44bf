#include "ztxml/XMLCommunicationDiversion.h"

#include "documents/services/CommonPolicyBinding.h"

namespace {
constexpr char kSource[] = "src/XMLCommunicationDiversion";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

// Intended: a "reveal" text that only begins with a value is read as that value ("true-ish" as
// "true"), because servers append to values.
constexpr ZtEnumByPrefix kReveal = {"false", "not-reveal-GRUU", "true"};

constexpr ZtRange kSeconds = {zt_NoReplyTimer::kLeast, zt_NoReplyTimer::kMost};

struct Actions {
  static constexpr char kWriter[] = "<XML Module>: AddActionsElementToXml";
  static constexpr ZtChoice kActions[] = {CommonPolicyBinding::kFlags,
                                          {XML_STR_MEDIA, zt_ns_xcap_media_type::kType},
                                          {XML_STR_FORWARD_TO, zt_ns_xcap_forward_to_type::kType},
                                          {}};
};
constexpr const ZtPolicyTypes& kPolicy = ZtPolicyOf<Actions>::kTypes;
}  // namespace

// Intended: a timer that was read without a number in its range is written as 0, which its setter
// refuses; callers replace such a timer.
const ZtElementType zt_NoReplyTimer::kType = {
    ZtTypeOf<zt_NoReplyTimer>("zt_NoReplyTimer", "NoReplyTimer", kFamily)
        .Writer(XML_STR_NO_REPLY_TIMER, "AddNoReplyTimerElementToXml", XML_STR_SS),
    {ztrow::OwnText(XML_STR_NO_REPLY_TIMER, ZT_AT(zt_NoReplyTimer, m_Seconds), kSeconds).Must()}};
// Intended: the writer of a forward-to is called AddForwardToElementtoXml, with a small "t";
// callers and log readers use the name.
const ZtElementType zt_ns_xcap_forward_to_type::kType = {
    ZtTypeOf<zt_ns_xcap_forward_to_type>("zt_ns_xcap_forward_to_type",
                                         "CommunicationDiversion:ForwardToType", kFamily)
        .Writer(XML_STR_FORWARD_TO, "AddForwardToElementtoXml", XML_STR_SS)
        .RefusesUnknownChildren(),
    {ztrow::TextElement(XML_STR_TARGET, ZT_AT(zt_ns_xcap_forward_to_type, m_Target)).Must(),
     ztrow::TextElement(XML_STR_NOTIFY_CALLER, ZT_AT(zt_ns_xcap_forward_to_type, m_NotifyCaller),
                        kBoolean),
     ztrow::TextElement(XML_STR_REVEAL_IDENTITY_TO_CALLER,
                        ZT_AT(zt_ns_xcap_forward_to_type, m_RevealIdentityToCaller), kReveal),
     ztrow::TextElement(XML_STR_REVEAL_SERVED_USER_IDENTITY_TO_CALLER,
                        ZT_AT(zt_ns_xcap_forward_to_type, m_RevealServedUserIdentityToCaller),
                        kReveal),
     ztrow::TextElement(XML_STR_NOTIFY_SERVED_USER,
                        ZT_AT(zt_ns_xcap_forward_to_type, m_NotifyServedUser), kBoolean),
     ztrow::TextElement(XML_STR_NOTIFY_SERVED_USER_ON_OUTBOUND_CALL,
                        ZT_AT(zt_ns_xcap_forward_to_type, m_NotifyServedUserOnOutboundCall),
                        kBoolean),
     ztrow::TextElement(XML_STR_REVEAL_IDENTITY_TO_TARGET,
                        ZT_AT(zt_ns_xcap_forward_to_type, m_RevealIdentityToTarget), kReveal)}};
// Intended: a rule set that cannot be written is cut short where it fails, and the service is
// written to its end, so that callers get a text that is not well formed instead of none.
const ZtElementType zt_communication_diversion::kType = {
    ZtTypeOf<zt_communication_diversion>("communication-diversion", "CommunicationDiversion",
                                         kFamily)
        .Writer(XML_STR_COMMUNICATION_DIVERSION, "AddCommunication_diversionElementToXml",
                XML_STR_SS)
        .Root(),
    {SimservBinding::kAttributes, SimservBinding::kActive,
     ztrow::Child(XML_STR_NO_REPLY_TIMER, ZT_AT(zt_communication_diversion, m_NoReplyTimer))
         .Arrives(ZtArrival::kAsText),
     ztrow::Child(XML_STR_RULESET, ZT_AT(zt_communication_diversion, m_RuleSet), *kPolicy.ruleset)
         .Lenient()}};

int zt_NoReplyTimer::setNoReplyTimerValue(unsigned int seconds) {
  if (seconds < kLeast || seconds > kMost) return 0;
  return m_Seconds.Set(seconds);
}

Communication_diversionMarshaller::Communication_diversionMarshaller()
    : ZtDescribedBy(CommunicationDiversionContext::kDocument) {}
// Intended: AddNoReplyTimerElementToXml writes nothing for a null timer and answers 1, where other
// steps answer 0 for null; callers write a service without a timer so.
int Communication_diversionMarshaller::AddNoReplyTimerElementToXml(zt_NoReplyTimer* timer) {
  return Write(timer, zt_NoReplyTimer::kType) || !timer;
}

const ZtDocument CommunicationDiversionContext::kDocument = {
    ZtDocumentOf<CommunicationDiversionContext, XMLCommunicationDiversionDecoder,
                 CommunicationDiversionUnMarshaller, Communication_diversionMarshaller,
                 CommunicationDiversionDataBinder>(kSource)
        .Schema(XML_SCHEMA_COMMUNICATION_DIVERSION, "CommunicationDiversion", kSimservsNamespace,
                "communication-diversion")
        .Decodes("XMLCommunicationDiversionDecoder", "src/CommunicationDiversion",
                 ZtPrefixRule::kRewrite)
        .Reads("CommunicationDiversionUnMarshaller")
        .Writes("Communication_diversionMarshaller", "mCdivXml")
        .AsFragment(),
    {{XML_STR_COMMUNICATION_DIVERSION, &zt_communication_diversion::kType}},
    {&zt_NoReplyTimer::kType, kPolicy.ruleset, kPolicy.rule,
     &zt_ns_common_policy_conditionsType::kType, kPolicy.actions,
     &zt_ns_xcap_forward_to_type::kType, &CommonPolicyBinding::kFlag}};

const ZtPolicyTypes& Communication_diversionMarshaller::Policy() const { return kPolicy; }
