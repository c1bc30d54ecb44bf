#include "RcsTermsInfo.h"

#include "XMLRcsTermsInfo.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RCS_TERMS_INFO, ZtElementKind::kRoot, &zt_rcs_terms_info::kType},
    {XML_STR_TERM, ZtElementKind::kStructured, &zt_ns_rcs_terms_info_term::kType},
};
constexpr ZtGrammar kGrammar(
    "XMLRcsTermsInfoDecoder", "src/RcsTermsInfo",
    "XMLRcsTermsInfoDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kStrip, kRows);

}  // namespace

XMLRcsTermsInfoDecoder::XMLRcsTermsInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
