#include "XMLCommunicationWaiting.h"

#include "CommunicationWaiting.h"
#include "SimservBinding.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/XMLCommunicationWaiting";
}  // namespace

const ZtElementType zt_communication_waiting::kType =
    SimservBinding::Switch<zt_communication_waiting>(
        XML_STR_COMMUNICATION_WAITING, "communication-waiting", "CommunicationWaiting",
        "AddCommunication_waitingElementToXml");

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {{XML_STR_COMMUNICATION_WAITING, &zt_communication_waiting::kType}};
// Intended: the line about a lack of memory names the decoder of communication diversion instead of
// its own; log readers search for it as it is.
constexpr ZtReading kReading =
    ZtReading("XMLCommunicationWaitingDecoder", "src/CommunicationWaiting", ZtPrefixRule::kRewrite)
        .Roots(kRoots)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate "
            "memory");

}  // namespace

XMLCommunicationWaitingDecoder::XMLCommunicationWaitingDecoder() : ZtNamespaceDecoder(kReading) {}

XMLObject* CommunicationWaitingDataBinder::CreateRootElement() {
  return ZtCreate<zt_communication_waiting>(kSource);
}

Communication_waitingMarshaller::Communication_waitingMarshaller()
    : ZtDescribedBy(CommunicationWaitingContext::kDocument) {}
int Communication_waitingMarshaller::AddCommunication_waitingElementToXml(
    zt_communication_waiting* service) {
  return Write(service, zt_communication_waiting::kType);
}

const ZtDocument CommunicationWaitingContext::kDocument =
    ZtDocumentOf<CommunicationWaitingContext, XMLCommunicationWaitingDecoder,
                 CommunicationWaitingUnMarshaller, Communication_waitingMarshaller,
                 CommunicationWaitingDataBinder>({XML_SCHEMA_COMMUNICATION_WAITING,
                                                  "CommunicationWaiting",
                                                  {"communication-waiting", nullptr},
                                                  kSimservsNamespace,
                                                  true},
                                                 kSource)
        .Reads("CommunicationWaitingUnMarshaller")
        .Writes(kZtRoots<zt_communication_waiting>, "Communication_waitingMarshaller",
                "mCommunicationWaitingXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines);
