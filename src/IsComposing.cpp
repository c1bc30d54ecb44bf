#include "IsComposing.h"

#include "XMLIsComposing.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_IS_COMPOSING, ZtElementKind::kRoot, &zt_isComposing::kType},
};

// Intended: names of elements are compared as they stand, so that an indication with prefixes is
// not read; in most other documents callers get elements under any prefix.
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLIsComposingDecoder", "src/IsComposing", ZtPrefixRule::kExact).Names(kRows);

}  // namespace

XMLIsComposingDecoder::XMLIsComposingDecoder() : ZtSchemaDecoder(kGrammar) {}
