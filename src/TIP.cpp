#include "TIP.h"

#include "XMLTIP.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {{XML_STR_TERMINATING_IDENTITY_PRESENTATION, ZtElementKind::kRoot,
                                   &zt_terminating_identity_presentation::kType}};
constexpr ZtGrammar kGrammar(
    "XMLTIPDecoder", "src/TIP",
    "XMLTIPDecoder :: XMLChangeNamespaceTag Malloc unable to allocate memory",
    ZtPrefixRule::kRewrite, kRows);

}  // namespace

XMLTIPDecoder::XMLTIPDecoder() : ZtNamespaceDecoder(kGrammar) {}
