#include "BootstrappingInfo.h"

#include "XMLBootstrappingInfo.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_BOOTSTRAPPING_INFO, ZtElementKind::kRoot, &zt_bootstrappinginfo::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLBootstrappingInfoDecoder", "src/BootstrappingInfo", ZtPrefixRule::kStrip)
        .Names(kRows);

}  // namespace

XMLBootstrappingInfoDecoder::XMLBootstrappingInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
