#include "IsComposing.h"

#include "XMLIsComposing.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_IS_COMPOSING, ZtElementKind::kRoot, &zt_isComposing::kType},
};

// Intended: names are compared as they stand, so that a document with prefixes has no root.
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLIsComposingDecoder", "src/IsComposing", ZtPrefixRule::kExact).Names(kRows);

}  // namespace

XMLIsComposingDecoder::XMLIsComposingDecoder() : ZtSchemaDecoder(kGrammar) {}
