#include "XMLTIP.h"

#include "SimservBinding.h"
#include "TIP.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/XMLTIP";
}  // namespace

const ZtElementType zt_terminating_identity_presentation::kType =
    SimservBinding::Switch<zt_terminating_identity_presentation>(
        XML_STR_TERMINATING_IDENTITY_PRESENTATION, "terminating-identity-presentation",
        "TerminatingIdentityPresentation", "AddTerminatingIdentityPresentationElementToXml");

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {
    {XML_STR_TERMINATING_IDENTITY_PRESENTATION, &zt_terminating_identity_presentation::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLTIPDecoder", "src/TIP", ZtPrefixRule::kRewrite).Roots(kRoots);

}  // namespace

XMLTIPDecoder::XMLTIPDecoder() : ZtNamespaceDecoder(kReading) {}

XMLObject* TIPDataBinder::CreateRootElement() {
  return ZtCreate<zt_terminating_identity_presentation>(kSource);
}

TIPMarshaller::TIPMarshaller() : ZtDescribedBy(TIPContext::kDocument) {}
int TIPMarshaller::AddTIPElementToXml(zt_terminating_identity_presentation* service) {
  return Write(service, zt_terminating_identity_presentation::kType);
}

const ZtDocument TIPContext::kDocument =
    ZtDocumentOf<TIPContext, XMLTIPDecoder, TIPUnMarshaller, TIPMarshaller, TIPDataBinder>(
        {XML_SCHEMA_TIP,
         "TIP",
         {"terminating-identity-presentation", nullptr},
         kSimservsNamespace,
         true},
        kSource)
        .Reads("TIPUnMarshaller")
        .Writes(kZtRoots<zt_terminating_identity_presentation>, "TIPMarshaller", "mTIPXml")
        .AsFragment()
        .Lines(SimservBinding::kSwitchLines);
