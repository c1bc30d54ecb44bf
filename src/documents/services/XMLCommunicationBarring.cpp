#include "ztxml/XMLCommunicationBarring.h"

#include "base/ZtLog.h"
#include "documents/services/CommonPolicyBinding.h"
#include "ztxml/XMLCommunicationDiversion.h"

namespace {
constexpr char kSource[] = "src/XMLCommunicationBarring";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

// Intended: a forward-to, which has no place in barring, is written without its content instead of
// being left out.
constexpr ZtElementType kEmptyForwardTo = {
    ZtTypeOf<zt_ns_xcap_forward_to_type>("zt_ns_xcap_forward_to_type",
                                         "CommunicationDiversion:ForwardToType", kFamily)
        .Writer(XML_STR_FORWARD_TO, nullptr, XML_STR_SS)};

struct Actions {
  // Intended: the log line about the actions of a rule begins with the marshaller's name and lacks
  // the lead "<XML Module>: "; log readers search for it as it is.
  static constexpr char kWriter[] = "Communication_barringMarshaller: AddActionsElementToXml";
  static constexpr ZtChoice kActions[] = {
      CommonPolicyBinding::kFlags,
      {XML_STR_MEDIA, zt_ns_xcap_media_type::kType},
      ZtChoice(XML_STR_FORWARD_TO, zt_ns_xcap_forward_to_type::kType).WrittenBy(&kEmptyForwardTo),
      {XML_STR_ALLOW, zt_allow_action_type::kType},
      {}};
};
constexpr const ZtPolicyTypes& kPolicy = ZtPolicyOf<Actions>::kTypes;
}  // namespace

struct CommunicationBarringBinding {
  // Intended: a rule set that cannot be written is cut short where it fails, and the service is
  // written to its end, so that callers get a text that is not well formed instead of none.
  static constexpr ZtField kRuleSet =
      ztrow::Child(XML_STR_RULESET, ZT_AT(ZtCommunicationBarring, m_RuleSet), *kPolicy.ruleset)
          .Lenient();
};

const ZtElementType zt_allow_action_type::kType = {
    ZtTypeOf<zt_allow_action_type>("zt_allow_action_type", "CommunicationBarring:AllowActionType",
                                   kFamily)
        .Writer(XML_STR_ALLOW, nullptr, XML_STR_SS),
    {ztrow::OwnText(XML_STR_ALLOW, ZT_AT(zt_allow_action_type, m_Allow), kTrueOrElseFalse).Must()}};
// Intended: incoming barring reads any "active" but "true" as false, outgoing barring leaves its
// value unchanged unless the text is "true" or "false"; peers know the two services so.
const ZtElementType zt_incoming_communication_barring::kType = {
    ZtTypeOf<zt_incoming_communication_barring>(
        "incoming-communication-barring",
        // Intended: the ElementName of incoming barring is spelt "IncomingComunicationBarring";
        // callers compare with it.
        "IncomingComunicationBarring", kFamily)
        .Writer(XML_STR_INCOMING_COMMUNICATION_BARRING,
                "AddIncoming_communication_barringElementToXml", XML_STR_SS)
        .Root(),
    {SimservBinding::kAttributes, SimservBinding::kActiveOrElseNot,
     CommunicationBarringBinding::kRuleSet}};
const ZtElementType zt_outgoing_communication_barring::kType = {
    ZtTypeOf<zt_outgoing_communication_barring>("outgoing-communication-barring",
                                                "OutgoingCommunicationBarring", kFamily)
        // Intended: log lines call the writer of outgoing barring
        // "Addoutgoing_communication_barringElementToXml", with a small "o", unlike its operation;
        // log readers search for that.
        .Writer(XML_STR_OUTGOING_COMMUNICATION_BARRING,
                "Addoutgoing_communication_barringElementToXml", XML_STR_SS)
        .Root(),
    {SimservBinding::kAttributes, SimservBinding::kActive, CommunicationBarringBinding::kRuleSet}};

int CommunicationBarringDataBinder::setCBType(XML_COMMUNICATION_BARRING_TYPE type) {
  // Intended: every call of setCBType is logged as an error, although nothing has failed; log
  // readers find it at that level.
  ZtLog(kZtLogError, kSource)("<XML Module>: in CommunicationBarringDataBinder::setCBType  %d",
                              static_cast<int>(type));
  if (type != XML_COMMUNICATION_BARRING_INCOMING && type != XML_COMMUNICATION_BARRING_OUTGOING) {
    ZtLog(kZtLogError, kSource)("<XML Module>: CB Type is invalid ");
    return 0;
  }
  m_CBType = type;
  return 1;
}

XMLObject* CommunicationBarringDataBinder::CreateRootElement() {
  switch (m_CBType) {
    case XML_COMMUNICATION_BARRING_INCOMING:
      return ZtCreate<zt_incoming_communication_barring>(kSource);
    case XML_COMMUNICATION_BARRING_OUTGOING:
      return ZtCreate<zt_outgoing_communication_barring>(kSource);
    default:
      return nullptr;
  }
}

Communication_barringMarshaller::Communication_barringMarshaller()
    : ZtDescribedBy(CommunicationBarringContext::kDocument) {}

const ZtDocument CommunicationBarringContext::kDocument = {
    ZtDocumentOf<CommunicationBarringContext, XMLCommunicationBarringDecoder,
                 CommunicationBarringUnMarshaller, Communication_barringMarshaller,
                 CommunicationBarringDataBinder>(kSource)
        .Schema(XML_SCHEMA_COMMUNICATION_BARRING, "CommunicationBarring", kSimservsNamespace,
                "incoming-communication-barring", "outgoing-communication-barring")
        // Intended: the log line about a lack of memory in this decoder names that of communication
        // diversion; log readers search for it as it is.
        .Decodes("XMLCommunicationBarringDecoder", "src/CommunicationBarring",
                 ZtPrefixRule::kRewrite)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate "
            "memory")
        .Reads("CommunicationBarringUnMarshaller")
        .Writes("Communication_barringMarshaller", "mCbXml")
        .AsFragment(),
    // Intended: the log line about a service that cannot be written names
    // Incoming_communication_barringMarshaller or outgoing_communication_barringMarshaller, which
    // are no classes; log readers search for these names.
    {{XML_STR_INCOMING_COMMUNICATION_BARRING, &zt_incoming_communication_barring::kType,
      "Incoming_communication_barringMarshaller"},
     {XML_STR_OUTGOING_COMMUNICATION_BARRING, &zt_outgoing_communication_barring::kType,
      "outgoing_communication_barringMarshaller"}},
    {kPolicy.ruleset, kPolicy.rule, &zt_ns_common_policy_conditionsType::kType, kPolicy.actions,
     &CommonPolicyBinding::kFlag, &zt_ns_common_policy_exceptType::kType}};

const ZtPolicyTypes& Communication_barringMarshaller::Policy() const { return kPolicy; }
