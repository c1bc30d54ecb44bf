#include "ztxml/XMLRcsTermsInfo.h"

#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLRcsTermsInfo";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);
}  // namespace

const ZtElementType zt_ns_rcs_terms_info_term::kType = {
    ZtTypeOf<zt_ns_rcs_terms_info_term>("zt_ns_rcs_terms_info_term", "term", kFamily)
        .Writer(XML_STR_TERM, "AddTermElementToXml"),
    {ztrow::TextElement(XML_STR_TITLE, ZT_AT(zt_ns_rcs_terms_info_term, m_Title)).FreeText(),
     ztrow::TextElement(XML_STR_URL, ZT_AT(zt_ns_rcs_terms_info_term, m_Url))}};
const ZtElementType zt_rcs_terms_info::kType = {
    ZtTypeOf<zt_rcs_terms_info>("zt_rcs_terms_info", "rcs-terms-info", kFamily)
        .Writer(XML_STR_RCS_TERMS_INFO, "AddRcsTermsInfoElementToXml")
        .Root(),
    {ztrow::Attribute(XML_STR_VERSION, ZT_AT(zt_rcs_terms_info, m_Version)),
     ztrow::TextElement(XML_STR_TERMS_VERSION, ZT_AT(zt_rcs_terms_info, m_TermsVersion)).FreeText(),
     ztrow::Children(XML_STR_TERM, ZT_AT(zt_rcs_terms_info, m_Terms))}};

const ZtDocument RcsTermsInfoContext::kDocument = {
    ZtDocumentOf<RcsTermsInfoContext, XMLRcsTermsInfoDecoder, RcsTermsInfoUnMarshaller,
                 RcsTermsInfoMarshaller, RcsTermsInfoDataBinder>(kSource)
        .Schema(XML_SCHEMA_RCS_TERMS_INFO, "RcsTermsInfo", nullptr, "rcs-terms-info")
        .Decodes("XMLRcsTermsInfoDecoder", "src/RcsTermsInfo", ZtPrefixRule::kStrip)
        .Reads("RcsTermsInfoUnMarshaller")
        .Writes("RcsTermsInfoMarshaller", "mRcsTermsInfoXml"),
    {{XML_STR_RCS_TERMS_INFO, &zt_rcs_terms_info::kType}}};
