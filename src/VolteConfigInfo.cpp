#include "VolteConfigInfo.h"

#include "CharacteristicBinding.h"
#include "XMLVolteConfigInfo.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {ZT_STR_VOLTE_CONFIG_INFO, ZtElementKind::kRoot, &zt_volte_config_info::kType},
    {ZT_STR_WAP_PROVISIONINGDOC, ZtElementKind::kRoot, &zt_volte_config_info::kType},
    CharacteristicBinding::kCharacteristicRow,
    CharacteristicBinding::kParmRow,
};
constexpr ZtGrammar kGrammar(
    "XMLVolteConfigInfoDecoder", "src/VolteConfigInfo",
    "XMLVolteConfigInfoDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kStrip, kRows);

}  // namespace

XMLVolteConfigInfoDecoder::XMLVolteConfigInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
