#include "TIP.h"

#include "XMLTIP.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {{XML_STR_TERMINATING_IDENTITY_PRESENTATION, ZtElementKind::kRoot,
                                   &zt_terminating_identity_presentation::kType}};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLTIPDecoder", "src/TIP", ZtPrefixRule::kRewrite).Names(kRows);

}  // namespace

XMLTIPDecoder::XMLTIPDecoder() : ZtNamespaceDecoder(kGrammar) {}
