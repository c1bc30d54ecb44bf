#include "CommunicationDiversion.h"

#include "CommonPolicyGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_COMMUNICATION_DIVERSION, ZtElementKind::kRoot, &zt_communication_diversion::kType},
};

constexpr ZtGrammar kGrammar = ZtGrammar("XMLCommunicationDiversionDecoder",
                                         "src/CommunicationDiversion", ZtPrefixRule::kRewrite)
                                   .Names(kRows)
                                   .Shares(kPolicyRows);

}  // namespace

XMLCommunicationDiversionDecoder::XMLCommunicationDiversionDecoder()
    : ZtNamespaceDecoder(kGrammar) {}
