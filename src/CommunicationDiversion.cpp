#include "CommunicationDiversion.h"

#include "CommonPolicyGrammar.h"

namespace {

constexpr ZtGrammarRow kOwnRows[] = {
    {XML_STR_COMMUNICATION_DIVERSION, ZtElementKind::kRoot, &zt_communication_diversion::kType},
};
constexpr auto kRows = ZtWithPolicyRows(kOwnRows);

constexpr ZtGrammar kGrammar(
    "XMLCommunicationDiversionDecoder", "src/CommunicationDiversion",
    "XMLCommunicationDiversionDecoder :: XMLChangeNamespaceTag Malloc unable to allocate memory",
    ZtPrefixRule::kRewrite, kRows.rows);

}  // namespace

XMLCommunicationDiversionDecoder::XMLCommunicationDiversionDecoder()
    : ZtNamespaceDecoder(kGrammar) {}
