#include "ResourceLists.h"

#include "ResourceListGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RESOURCE_LISTS, ZtElementKind::kRoot, &zt_resource_lists::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLResourceListsDecoder", "src/ResourceLists", ZtPrefixRule::kStrip)
        .Names(kRows)
        .Shares(kResourceListRows);

}  // namespace

XMLResourceListsDecoder::XMLResourceListsDecoder() : ZtSchemaDecoder(kGrammar) {}
