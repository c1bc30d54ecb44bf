#include "CommunicationWaiting.h"

#include "XMLCommunicationWaiting.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_COMMUNICATION_WAITING, ZtElementKind::kRoot, &zt_communication_waiting::kType}};
// Intended: the line about a lack of memory names the decoder of communication diversion instead of
// its own; log readers search for it as it is.
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLCommunicationWaitingDecoder", "src/CommunicationWaiting", ZtPrefixRule::kRewrite)
        .Names(kRows)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate "
            "memory");

}  // namespace

XMLCommunicationWaitingDecoder::XMLCommunicationWaitingDecoder() : ZtNamespaceDecoder(kGrammar) {}
