#include "IsComposing.h"

#include "XMLIsComposing.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_IS_COMPOSING, ZtElementKind::kRoot, &zt_isComposing::kType},
};

// Intended: names are compared as they stand, so that a document with prefixes has no root.
constexpr ZtGrammar kGrammar(
    "XMLIsComposingDecoder", "src/IsComposing",
    "XMLIsComposingDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kExact, kRows);

}  // namespace

XMLIsComposingDecoder::XMLIsComposingDecoder() : ZtSchemaDecoder(kGrammar) {}
