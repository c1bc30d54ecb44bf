#include "CommunicationBarring.h"

#include "CommonPolicyGrammar.h"
#include "XMLCommunicationBarring.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_INCOMING_COMMUNICATION_BARRING, ZtElementKind::kRoot,
     &zt_incoming_communication_barring::kType},
    {XML_STR_OUTGOING_COMMUNICATION_BARRING, ZtElementKind::kRoot,
     &zt_outgoing_communication_barring::kType},
    {XML_STR_ALLOW, ZtElementKind::kTextBearing, &zt_allow_action_type::kType},
};

// Intended: the line about a lack of memory names the decoder of communication diversion instead of
// its own; log readers search for it as it is.
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLCommunicationBarringDecoder", "src/CommunicationBarring", ZtPrefixRule::kRewrite)
        .Names(kRows)
        .Shares(kPolicyRows)
        .NoMemory(
            "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate "
            "memory");

}  // namespace

XMLCommunicationBarringDecoder::XMLCommunicationBarringDecoder() : ZtNamespaceDecoder(kGrammar) {}
