#include "XMLRcsTermsInfo.h"

#include "RcsTermsInfo.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtReading.h"

namespace {

constexpr char kSource[] = "src/XMLRcsTermsInfo";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);
}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct RcsTermsInfoBinding {
  static constexpr ZtField kTerm[] = {
      ztrow::TextElement(XML_STR_TITLE, &zt_ns_rcs_terms_info_term::m_Title),
      ztrow::TextElement(XML_STR_URL, &zt_ns_rcs_terms_info_term::m_Url),
  };
  static constexpr ZtField kTerms[] = {
      ztrow::Attribute(XML_STR_VERSION, &zt_rcs_terms_info::m_Version),
      ztrow::TextElement(XML_STR_TERMS_VERSION, &zt_rcs_terms_info::m_TermsVersion),
      ztrow::Children(XML_STR_TERM, &zt_rcs_terms_info::m_Terms, zt_ns_rcs_terms_info_term::kType),
  };
  static_assert(ztrow::Sound(kTerm) && ztrow::Sound(kTerms));
};

const ZtElementType zt_ns_rcs_terms_info_term::kType =
    ZtTypeOf<zt_ns_rcs_terms_info_term>("zt_ns_rcs_terms_info_term", "term", kFamily)
        .Fields(RcsTermsInfoBinding::kTerm)
        .Writer(XML_STR_TERM, "AddTermElementToXml");

const ZtElementType zt_rcs_terms_info::kType =
    ZtTypeOf<zt_rcs_terms_info>("zt_rcs_terms_info", "rcs-terms-info", kFamily)
        .Fields(RcsTermsInfoBinding::kTerms)
        .Writer(XML_STR_RCS_TERMS_INFO, "AddRcsTermsInfoElementToXml")
        .Root();

// ---- Decoder ------------------------------------------------------------------------------------

namespace {

constexpr ZtRoot kRoots[] = {{XML_STR_RCS_TERMS_INFO, &zt_rcs_terms_info::kType}};
constexpr ZtReading kReading =
    ZtReading("XMLRcsTermsInfoDecoder", "src/RcsTermsInfo", ZtPrefixRule::kStrip).Roots(kRoots);

}  // namespace

XMLRcsTermsInfoDecoder::XMLRcsTermsInfoDecoder() : ZtSchemaDecoder(kReading) {}

// ---- Workers ------------------------------------------------------------------------------------

XMLObject* RcsTermsInfoDataBinder::CreateRootElement() {
  return ZtCreate<zt_rcs_terms_info>(kSource);
}
zt_ns_rcs_terms_info_term* RcsTermsInfoDataBinder::CreateTermElement() {
  return ZtCreate<zt_ns_rcs_terms_info_term>(kSource);
}

int RcsTermsInfoMarshaller::AddRcsTermsInfoElementToXml(zt_rcs_terms_info* terms) {
  return Write(terms, zt_rcs_terms_info::kType);
}
int RcsTermsInfoMarshaller::AddTermElementToXml(zt_ns_rcs_terms_info_term* term) {
  return Write(term, zt_ns_rcs_terms_info_term::kType);
}

const ZtDocument RcsTermsInfoContext::kDocument =
    ZtDocumentOf<RcsTermsInfoContext, XMLRcsTermsInfoDecoder, RcsTermsInfoUnMarshaller,
                 RcsTermsInfoMarshaller, RcsTermsInfoDataBinder>(
        {XML_SCHEMA_RCS_TERMS_INFO, "RcsTermsInfo", {"rcs-terms-info", nullptr}, nullptr, true},
        kSource)
        .Reads("RcsTermsInfoUnMarshaller")
        .Writes(kZtRoots<zt_rcs_terms_info>, "RcsTermsInfoMarshaller", "mRcsTermsInfoXml");
