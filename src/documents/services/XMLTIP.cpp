#include "ztxml/XMLTIP.h"

#include "documents/services/SimservBinding.h"

namespace {
constexpr char kSource[] = "src/XMLTIP";
}  // namespace

const ZtElementType zt_terminating_identity_presentation::kType = {
    SimservBinding::Switch<zt_terminating_identity_presentation>(
        XML_STR_TERMINATING_IDENTITY_PRESENTATION, "terminating-identity-presentation",
        "TerminatingIdentityPresentation", "AddTerminatingIdentityPresentationElementToXml"),
    {SimservBinding::kAttributes, SimservBinding::kActiveOrElseNot, SimservBinding::kElements}};

TIPMarshaller::TIPMarshaller() : ZtDescribedBy(TIPContext::kDocument) {}

const ZtDocument TIPContext::kDocument = {
    ZtDocumentOf<TIPContext, XMLTIPDecoder, TIPUnMarshaller, TIPMarshaller, TIPDataBinder>(kSource)
        .Schema(XML_SCHEMA_TIP, "TIP", kSimservsNamespace, "terminating-identity-presentation")
        .Decodes("XMLTIPDecoder", "src/TIP", ZtPrefixRule::kRewrite)
        .Reads("TIPUnMarshaller")
        .Writes("TIPMarshaller", "mTIPXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines),
    {{XML_STR_TERMINATING_IDENTITY_PRESENTATION, &zt_terminating_identity_presentation::kType}}};
