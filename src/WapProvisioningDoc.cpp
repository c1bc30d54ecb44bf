#include "WapProvisioningDoc.h"

#include "CharacteristicBinding.h"
#include "XMLWapProvisioningDoc.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {ZT_STR_WAP_PROVISIONINGDOC, ZtElementKind::kRoot, &zt_wap_provisioning_doc::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLWapProvisioningDocDecoder", "src/WapProvisioningDoc", ZtPrefixRule::kStrip)
        .Names(kRows)
        .Shares(CharacteristicBinding::kGrammarRows);

}  // namespace

XMLWapProvisioningDocDecoder::XMLWapProvisioningDocDecoder() : ZtSchemaDecoder(kGrammar) {}
