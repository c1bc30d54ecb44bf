#include "XMLOIP.h"

#include "OIP.h"
#include "SimservBinding.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/XMLOIP";
}  // namespace

const ZtElementType zt_originating_identity_presentation::kType =
    SimservBinding::Switch<zt_originating_identity_presentation>(
        XML_STR_ORIGINATING_IDENTITY_PRESENTATION, "originating-identity-presentation",
        "OriginatingIdentityPresentation", "AddOriginatingIdentityPresentationElementToXml");

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {
    {XML_STR_ORIGINATING_IDENTITY_PRESENTATION, &zt_originating_identity_presentation::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLOIPDecoder", "src/OIP", ZtPrefixRule::kRewrite).Roots(kRoots);

}  // namespace

XMLOIPDecoder::XMLOIPDecoder() : ZtNamespaceDecoder(kReading) {}

XMLObject* OIPDataBinder::CreateRootElement() {
  return ZtCreate<zt_originating_identity_presentation>(kSource);
}

OIPMarshaller::OIPMarshaller() : ZtDescribedBy(OIPContext::kDocument) {}
int OIPMarshaller::AddOIPElementToXml(zt_originating_identity_presentation* service) {
  return Write(service, zt_originating_identity_presentation::kType);
}

const ZtDocument OIPContext::kDocument =
    ZtDocumentOf<OIPContext, XMLOIPDecoder, OIPUnMarshaller, OIPMarshaller, OIPDataBinder>(
        {XML_SCHEMA_OIP,
         "OIP",
         {"originating-identity-presentation", nullptr},
         kSimservsNamespace,
         true},
        kSource)
        .Reads("OIPUnMarshaller")
        .Writes(kZtRoots<zt_originating_identity_presentation>, "OIPMarshaller", "mOIPXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines);
