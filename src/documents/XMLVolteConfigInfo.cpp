#include "ztxml/XMLVolteConfigInfo.h"

#include "documents/CharacteristicBinding.h"

namespace {
constexpr char kSource[] = "src/XMLVolteConfigInfo";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);
}  // namespace

const ZtElementType zt_volte_config_info::kType = {
    ZtTypeOf<zt_volte_config_info>("zt_volte_config_info", "volte-config-info", kFamily)
        .AttributesAsTexts()
        .Root(),
    {CharacteristicBinding::kVersion, CharacteristicBinding::kCharacteristics}};

// Intended: callers get a marshaller although the document can only be read: its Marshall always
// gives null.
char* VolteConfigInfoMarshall::Marshall(XMLElement* root) {
  return IsStandard() ? ZtMarshaller::Marshall(root) : nullptr;
}

const ZtDocument VolteConfigInfoContext::kDocument = {
    ZtDocumentOf<VolteConfigInfoContext, XMLVolteConfigInfoDecoder, VolteConfigInfoUnMarshaller,
                 VolteConfigInfoMarshall, VolteConfigInfoDataBinder>(kSource)
        .Schema(XML_SCHEMA_VOLTE_CONFIG_INFO, "VolteConfigInfo", nullptr, "volte-config-info",
                "wap-provisioningdoc")
        .Decodes("XMLVolteConfigInfoDecoder", "src/VolteConfigInfo", ZtPrefixRule::kStrip)
        .Reads("VolteConfigInfoUnMarshaller"),
    // Intended: the root "wap-provisioningdoc" is read, too, as an object of the class of
    // "volte-config-info"; callers tell the two documents apart by the context that they use.
    {{ZT_STR_VOLTE_CONFIG_INFO, &zt_volte_config_info::kType},
     {ZT_STR_WAP_PROVISIONINGDOC, &zt_volte_config_info::kType}}};
