#include "XMLVolteConfigInfo.h"

#include "CharacteristicBinding.h"
#include "VolteConfigInfo.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/XMLVolteConfigInfo";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);
}  // namespace

const ZtElementType zt_volte_config_info::kType =
    ZtTypeOf<zt_volte_config_info>("zt_volte_config_info", "volte-config-info", kFamily)
        .Fields(CharacteristicBinding::kRoot)
        .Root();

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

// Intended: a root "wap-provisioningdoc" is read, too, as an object of the class that
// "volte-config-info" has; callers tell the two by the context that they ask.
constexpr ZtRoot kRoots[] = {{ZT_STR_VOLTE_CONFIG_INFO, &zt_volte_config_info::kType},
                             {ZT_STR_WAP_PROVISIONINGDOC, &zt_volte_config_info::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLVolteConfigInfoDecoder", "src/VolteConfigInfo", ZtPrefixRule::kStrip)
        .Roots(kRoots);

}  // namespace

XMLVolteConfigInfoDecoder::XMLVolteConfigInfoDecoder() : ZtSchemaDecoder(kReading) {}

XMLObject* VolteConfigInfoDataBinder::CreateRootElement() {
  return ZtCreate<zt_volte_config_info>(kSource);
}
zt_characteristic* VolteConfigInfoDataBinder::CreateCharacteristic() {
  return ZtCreate<zt_characteristic>(kSource);
}
zt_parm* VolteConfigInfoDataBinder::CreateParm() { return ZtCreate<zt_parm>(kSource); }

// Intended: callers get a marshaller, whose Marshall always gives null, although the document is
// only read.
char* VolteConfigInfoMarshall::Marshall(XMLElement*) { return nullptr; }

const ZtDocument VolteConfigInfoContext::kDocument =
    ZtDocumentOf<VolteConfigInfoContext, XMLVolteConfigInfoDecoder, VolteConfigInfoUnMarshaller,
                 VolteConfigInfoMarshall, VolteConfigInfoDataBinder>(
        {XML_SCHEMA_VOLTE_CONFIG_INFO,
         "VolteConfigInfo",
         {"volte-config-info", "wap-provisioningdoc"},
         nullptr,
         false},
        kSource)
        .Reads("VolteConfigInfoUnMarshaller");
