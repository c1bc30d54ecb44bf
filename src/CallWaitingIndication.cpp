#include "CallWaitingIndication.h"

#include "XMLCallWaitingIndication.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_3GPP_IMS, ZtElementKind::kRoot, &zt_3gpp_ims::kType},
    {XML_STR_ALTERNATIVE_SERVICE, ZtElementKind::kStructured,
     &zt_ns_call_waiting_indication_alternative_service::kType},
    {XML_STR_ACTION, ZtElementKind::kStructured, &zt_ns_call_waiting_indication_action::kType},
    {XML_STR_CALL_WAITING_INDICATION, ZtElementKind::kFlag, nullptr},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLCallWaitingIndicationDecoder", "src/CallWaitingIndication", ZtPrefixRule::kStrip)
        .Names(kRows);

}  // namespace

XMLCallWaitingIndicationDecoder::XMLCallWaitingIndicationDecoder() : ZtSchemaDecoder(kGrammar) {}
