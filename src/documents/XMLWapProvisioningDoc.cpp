#include "ztxml/XMLWapProvisioningDoc.h"

#include "documents/CharacteristicBinding.h"

namespace {
constexpr char kSource[] = "src/XMLWapProvisioningDoc";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);
}  // namespace

const ZtElementType zt_wap_provisioning_doc::kType = {
    ZtTypeOf<zt_wap_provisioning_doc>("zt_wap_provisioning_doc", "wap-provisioningdoc", kFamily)
        .AttributesAsTexts()
        .Root(),
    {CharacteristicBinding::kVersion, CharacteristicBinding::kCharacteristics}};

// Intended: callers get a marshaller although the document can only be read: its Marshall always
// gives null.
char* WapProvisioningDocMarshall::Marshall(XMLElement* root) {
  return IsStandard() ? ZtMarshaller::Marshall(root) : nullptr;
}

const ZtDocument WapProvisioningDocContext::kDocument = {
    ZtDocumentOf<WapProvisioningDocContext, XMLWapProvisioningDocDecoder,
                 WapProvisioningDocUnMarshaller, WapProvisioningDocMarshall,
                 WapProvisioningDocDataBinder>(kSource)
        .Schema(XML_SCHEMA_WAP_PROVISIONING_DOC, "WapProvisioningDoc", nullptr,
                "wap-provisioningdoc")
        .Decodes("XMLWapProvisioningDocDecoder", "src/WapProvisioningDoc", ZtPrefixRule::kStrip)
        .Reads("WapProvisioningDocUnMarshaller"),
    {{ZT_STR_WAP_PROVISIONINGDOC, &zt_wap_provisioning_doc::kType}}};
