#include "XMLWapProvisioningDoc.h"

#include "CharacteristicBinding.h"
#include "WapProvisioningDoc.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/XMLWapProvisioningDoc";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);
}  // namespace

const ZtElementType zt_wap_provisioning_doc::kType =
    ZtTypeOf<zt_wap_provisioning_doc>("zt_wap_provisioning_doc", "wap-provisioningdoc", kFamily)
        .Fields(CharacteristicBinding::kRoot)
        .Root();

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {{ZT_STR_WAP_PROVISIONINGDOC, &zt_wap_provisioning_doc::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLWapProvisioningDocDecoder", "src/WapProvisioningDoc", ZtPrefixRule::kStrip)
        .Roots(kRoots);

}  // namespace

XMLWapProvisioningDocDecoder::XMLWapProvisioningDocDecoder() : ZtSchemaDecoder(kReading) {}

XMLObject* WapProvisioningDocDataBinder::CreateRootElement() {
  return ZtCreate<zt_wap_provisioning_doc>(kSource);
}
zt_characteristic* WapProvisioningDocDataBinder::CreateCharacteristic() {
  return ZtCreate<zt_characteristic>(kSource);
}
zt_parm* WapProvisioningDocDataBinder::CreateParm() { return ZtCreate<zt_parm>(kSource); }

// Intended: callers get a marshaller, whose Marshall always gives null, although the document is
// only read.
char* WapProvisioningDocMarshall::Marshall(XMLElement*) { return nullptr; }

const ZtDocument WapProvisioningDocContext::kDocument =
    ZtDocumentOf<WapProvisioningDocContext, XMLWapProvisioningDocDecoder,
                 WapProvisioningDocUnMarshaller, WapProvisioningDocMarshall,
                 WapProvisioningDocDataBinder>({XML_SCHEMA_WAP_PROVISIONING_DOC,
                                                "WapProvisioningDoc",
                                                {"wap-provisioningdoc", nullptr},
                                                nullptr,
                                                false},
                                               kSource)
        .Reads("WapProvisioningDocUnMarshaller");
