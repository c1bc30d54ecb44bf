#include "CWIndication.h"

#include "XMLCWIndication.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_IMS_3GPP, ZtElementKind::kRoot, &zt_ims_3gpp::kType},
    {XML_STR_ALTERNATIVE_SERVICE, ZtElementKind::kStructured, &zt_alternative_service::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLCWIndicationDecoder", "src/CWIndication", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLCWIndicationDecoder::XMLCWIndicationDecoder() : ZtSchemaDecoder(kGrammar) {}
