#include "Simservs.h"

#include "XMLSimservs.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {{XML_STR_SIMSERVS, ZtElementKind::kRoot, &zt_Simservs::kType}};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLSimservsDecoder", "src/Simservs", ZtPrefixRule::kRewrite).Names(kRows);

}  // namespace

XMLSimservsDecoder::XMLSimservsDecoder() : ZtNamespaceDecoder(kGrammar) {}
