#include "OIP.h"

#include "XMLOIP.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {{XML_STR_ORIGINATING_IDENTITY_PRESENTATION, ZtElementKind::kRoot,
                                   &zt_originating_identity_presentation::kType}};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLOIPDecoder", "src/OIP", ZtPrefixRule::kRewrite).Names(kRows);

}  // namespace

XMLOIPDecoder::XMLOIPDecoder() : ZtNamespaceDecoder(kGrammar) {}
