#include "Imdn.h"

#include "XMLImdn.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_IMDN, ZtElementKind::kRoot, &zt_imdn::kType},
    {XML_STR_DELIVERY_NOTIFICATION, ZtElementKind::kStructured, &zt_delivery_notification::kType},
    {XML_STR_DISPLAY_NOTIFICATION, ZtElementKind::kStructured, &zt_display_notification::kType},
    {ZT_STR_PROCESSING_NOTIFICATION, ZtElementKind::kStructured,
     &zt_processing_notification::kType},
    {XML_STR_STATUS, ZtElementKind::kStructured, &zt_status::kType,
     &zt_delivery_notification::kType},
    {XML_STR_STATUS, ZtElementKind::kStructured, &zt_status::kType,
     &zt_display_notification::kType},
    {XML_STR_STATUS, ZtElementKind::kStructured, &zt_status::kType,
     &zt_processing_notification::kType},
    {XML_STR_DELIVERED, ZtElementKind::kEndBound, &zt_delivered::kType, &zt_status::kType},
    {XML_STR_FAILED, ZtElementKind::kEndBound, &zt_failed::kType, &zt_status::kType},
    {XML_STR_DISPLAYED, ZtElementKind::kEndBound, &zt_displayed::kType, &zt_status::kType},
    {XML_STR_PROCESSED, ZtElementKind::kEndBound, &zt_processed::kType, &zt_status::kType},
    {XML_STR_STORED, ZtElementKind::kEndBound, &zt_stored::kType, &zt_status::kType},
    {XML_STR_FORBIDDEN, ZtElementKind::kEndBound, &zt_forbidden::kType, &zt_status::kType},
    {XML_STR_ERROR, ZtElementKind::kEndBound, &zt_error::kType, &zt_status::kType},
    // Intended: an element of any other name in "imdn" is kept as a flag, without its content, and
    // not written; in a status such an element is dropped.
    {XML_STR_ZT_NULL, ZtElementKind::kFlag, nullptr, &zt_imdn::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLImdnDecoder", "src/Imdn", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLImdnDecoder::XMLImdnDecoder() : ZtSchemaDecoder(kGrammar) {}
