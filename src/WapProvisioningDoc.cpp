#include "WapProvisioningDoc.h"

#include "CharacteristicBinding.h"
#include "XMLWapProvisioningDoc.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {ZT_STR_WAP_PROVISIONINGDOC, ZtElementKind::kRoot, &zt_wap_provisioning_doc::kType},
    CharacteristicBinding::kCharacteristicRow,
    CharacteristicBinding::kParmRow,
};
constexpr ZtGrammar kGrammar(
    "XMLWapProvisioningDocDecoder", "src/WapProvisioningDoc",
    "XMLWapProvisioningDocDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kStrip, kRows);

}  // namespace

XMLWapProvisioningDocDecoder::XMLWapProvisioningDocDecoder() : ZtSchemaDecoder(kGrammar) {}
