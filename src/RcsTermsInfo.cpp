#include "RcsTermsInfo.h"

#include "XMLRcsTermsInfo.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RCS_TERMS_INFO, ZtElementKind::kRoot, &zt_rcs_terms_info::kType},
    {XML_STR_TERM, ZtElementKind::kStructured, &zt_ns_rcs_terms_info_term::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLRcsTermsInfoDecoder", "src/RcsTermsInfo", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLRcsTermsInfoDecoder::XMLRcsTermsInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
