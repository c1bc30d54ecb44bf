#include "ztxml/XMLCommunicationWaiting.h"

#include "documents/services/SimservBinding.h"

namespace {
constexpr char kSource[] = "src/XMLCommunicationWaiting";
}  // namespace

const ZtElementType zt_communication_waiting::kType = {
    SimservBinding::Switch<zt_communication_waiting>(
        XML_STR_COMMUNICATION_WAITING, "communication-waiting", "CommunicationWaiting",
        "AddCommunication_waitingElementToXml"),
    {SimservBinding::kAttributes, SimservBinding::kActiveOrElseNot, SimservBinding::kElements}};

Communication_waitingMarshaller::Communication_waitingMarshaller()
    : ZtDescribedBy(CommunicationWaitingContext::kDocument) {}

const ZtDocument CommunicationWaitingContext::kDocument = {
    ZtDocumentOf<CommunicationWaitingContext, XMLCommunicationWaitingDecoder,
                 CommunicationWaitingUnMarshaller, Communication_waitingMarshaller,
                 CommunicationWaitingDataBinder>(kSource)
        .Schema(XML_SCHEMA_COMMUNICATION_WAITING, "CommunicationWaiting", kSimservsNamespace,
                "communication-waiting")
        // Intended: the log line about a lack of memory in this decoder names that of communication
        // diversion; log readers search for it as it is.
        .Decodes("XMLCommunicationWaitingDecoder", "src/CommunicationWaiting",
                 ZtPrefixRule::kRewrite)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate "
            "memory")
        .Reads("CommunicationWaitingUnMarshaller")
        .Writes("Communication_waitingMarshaller", "mCommunicationWaitingXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines),
    {{XML_STR_COMMUNICATION_WAITING, &zt_communication_waiting::kType}}};
