#include "MediaControl.h"

#include "XMLMediaControl.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_MEDIA_CONTROL, ZtElementKind::kRoot, &zt_media_control::kType},
    {XML_STR_VC_PRIMITIVE, ZtElementKind::kStructured, &zt_vc_primitive::kType},
    {XML_STR_TO_ENCODER, ZtElementKind::kStructured, &zt_to_encoder::kType},
    {XML_STR_PICTURE_FAST_UPDATE, ZtElementKind::kFlag, nullptr},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLMediaControlDecoder", "src/MediaControl", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLMediaControlDecoder::XMLMediaControlDecoder() : ZtSchemaDecoder(kGrammar) {}
