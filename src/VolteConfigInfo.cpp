#include "VolteConfigInfo.h"

#include "CharacteristicBinding.h"
#include "XMLVolteConfigInfo.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {ZT_STR_VOLTE_CONFIG_INFO, ZtElementKind::kRoot, &zt_volte_config_info::kType},
    // Intended: a root "wap-provisioningdoc" is read, too, as an object of the class that
    // "volte-config-info" has; callers tell the two by the context that they ask.
    {ZT_STR_WAP_PROVISIONINGDOC, ZtElementKind::kRoot, &zt_volte_config_info::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLVolteConfigInfoDecoder", "src/VolteConfigInfo", ZtPrefixRule::kStrip)
        .Names(kRows)
        .Shares(CharacteristicBinding::kGrammarRows);

}  // namespace

XMLVolteConfigInfoDecoder::XMLVolteConfigInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
