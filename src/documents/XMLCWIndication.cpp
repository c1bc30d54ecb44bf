#include "ztxml/XMLCWIndication.h"

#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLCWIndication";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);

constexpr ZtRange kVersions = {0, ~0U, true};  // networks write "1" and "1.0"
}  // namespace

const ZtElementType zt_alternative_service::kType = {
    ZtTypeOf<zt_alternative_service>("zt_alternative_service", "alternative-service", kFamily)
        .Writer(XML_STR_ALTERNATIVE_SERVICE, "AddAlternativeServiceElementToXml"),
    {ztrow::TextElement(XML_STR_TYPE, ZT_AT(zt_alternative_service, m_Type)).FreeText().Must(),
     ztrow::TextElement(XML_STR_REASON, ZT_AT(zt_alternative_service, m_Reason)).FreeText(),
     ztrow::TextElement(XML_STR_ACTION, ZT_AT(zt_alternative_service, m_Action)).FreeText()}};
const ZtElementType zt_ims_3gpp::kType = {
    ZtTypeOf<zt_ims_3gpp>("zt_ims_3gpp", "ims-3gpp", kFamily)
        .Writer(XML_STR_IMS_3GPP, "AddIms3gppElementToXml")
        .Root(),
    {ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_ims_3gpp, m_Version), kVersions).Must(),
     ztrow::Child(XML_STR_ALTERNATIVE_SERVICE, ZT_AT(zt_ims_3gpp, m_AlternativeService)),
     ztrow::TextElement(XML_STR_SERVICE_INFO, ZT_AT(zt_ims_3gpp, m_ServiceInfo)).FreeText()}};

const ZtDocument CWIndicationContext::kDocument = {
    ZtDocumentOf<CWIndicationContext, XMLCWIndicationDecoder, CWIndicationUnMarshaller,
                 CWIndicationMarshaller, CWIndicationDataBinder>(kSource)
        .Schema(XML_SCHEMA_CW_INDICATION, "CWIndication", nullptr, "ims-3gpp")
        .Decodes("XMLCWIndicationDecoder", "src/CWIndication", ZtPrefixRule::kStrip)
        .Reads("CWIndicationUnMarshaller")
        // Intended: log lines call this marshaller CallWaitingIndicationMarshaller and its text
        // mCallWaitingIndicationXml, as those of the call-waiting indication are called; log
        // readers search for them.
        .Writes("CallWaitingIndicationMarshaller", "mCallWaitingIndicationXml"),
    {{XML_STR_IMS_3GPP, &zt_ims_3gpp::kType}}};
