#include "ztxml/XMLOIP.h"

#include "documents/services/SimservBinding.h"

namespace {
constexpr char kSource[] = "src/XMLOIP";
}  // namespace

const ZtElementType zt_originating_identity_presentation::kType = {
    SimservBinding::Switch<zt_originating_identity_presentation>(
        XML_STR_ORIGINATING_IDENTITY_PRESENTATION, "originating-identity-presentation",
        "OriginatingIdentityPresentation", "AddOriginatingIdentityPresentationElementToXml"),
    {SimservBinding::kAttributes, SimservBinding::kActiveOrElseNot, SimservBinding::kElements}};

OIPMarshaller::OIPMarshaller() : ZtDescribedBy(OIPContext::kDocument) {}

const ZtDocument OIPContext::kDocument = {
    ZtDocumentOf<OIPContext, XMLOIPDecoder, OIPUnMarshaller, OIPMarshaller, OIPDataBinder>(kSource)
        .Schema(XML_SCHEMA_OIP, "OIP", kSimservsNamespace, "originating-identity-presentation")
        .Decodes("XMLOIPDecoder", "src/OIP", ZtPrefixRule::kRewrite)
        .Reads("OIPUnMarshaller")
        .Writes("OIPMarshaller", "mOIPXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines),
    {{XML_STR_ORIGINATING_IDENTITY_PRESENTATION, &zt_originating_identity_presentation::kType}}};
