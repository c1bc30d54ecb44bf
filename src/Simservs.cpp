#include "Simservs.h"

#include "XMLSimservs.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {{XML_STR_SIMSERVS, ZtElementKind::kRoot, &zt_Simservs::kType}};
constexpr ZtGrammar kGrammar(
    "XMLSimservsDecoder", "src/Simservs",
    "XMLSimservsDecoder :: XMLChangeNamespaceTag Malloc unable to allocate memory",
    ZtPrefixRule::kRewrite, kRows);

}  // namespace

XMLSimservsDecoder::XMLSimservsDecoder() : ZtNamespaceDecoder(kGrammar) {}
