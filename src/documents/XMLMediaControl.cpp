#include "ztxml/XMLMediaControl.h"

#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLMediaControl";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);

constexpr ZtFlag kFlagText = {"%s::AddEmptyElementToXml: Received empty present false",
                              "%s::AddEmptyElementToXml: Received empty element is NULL"};
constexpr ZtExtras kFlagExtras = ZtExtrasOf(kFlagText);
constexpr ZtElementType kFlag = ZtFlagOf(kFamily, "AddEmptyElementToXml", kFlagExtras);
}  // namespace

// Intended: of a "picture_fast_update" that is set but not present nothing is written, and callers
// get the document; in a call-waiting indication such a flag fails the document.
const ZtElementType zt_to_encoder::kType = {
    ZtTypeOf<zt_to_encoder>("zt_to_encoder", "to_encoder", kFamily)
        .Writer(XML_STR_TO_ENCODER, "AddToEncoderElementToXml"),
    {ztrow::Child(XML_STR_PICTURE_FAST_UPDATE, ZT_AT(zt_to_encoder, m_PictureFastUpdate), kFlag)
         .Must()
         .Lenient()}};
const ZtElementType zt_vc_primitive::kType = {
    ZtTypeOf<zt_vc_primitive>("zt_vc_primitive", "vc_primitive", kFamily)
        .Writer(XML_STR_VC_PRIMITIVE, "AddVcPrimitiveElementToXml"),
    {ztrow::Child(XML_STR_TO_ENCODER, ZT_AT(zt_vc_primitive, m_ToEncoder)).Must()}};
const ZtElementType zt_media_control::kType = {
    ZtTypeOf<zt_media_control>("zt_media_control", "media_control", kFamily)
        .Writer(XML_STR_MEDIA_CONTROL, "AddMediaControlElementToXml")
        .Root(),
    {ztrow::Child(XML_STR_VC_PRIMITIVE, ZT_AT(zt_media_control, m_VcPrimitive))}};

zt_empty_element_type* MediaControlDataBinder::CreatePictureFastUpdateElement() {
  return ZtMakeFlag(kSource, ZtName(XML_STR_PICTURE_FAST_UPDATE));
}

int MediaControlMarshaller::AddEmptyElementToXml(zt_empty_element_type* flag) {
  return Write(flag, kFlag);
}

const ZtDocument MediaControlContext::kDocument = {
    ZtDocumentOf<MediaControlContext, XMLMediaControlDecoder, MediaControlUnMarshaller,
                 MediaControlMarshaller, MediaControlDataBinder>(kSource)
        .Schema(XML_SCHEMA_MEDIA_CONTROL, "MediaControl", nullptr, "media_control")
        .Decodes("XMLMediaControlDecoder", "src/MediaControl", ZtPrefixRule::kStrip)
        .Reads("MediaControlUnMarshaller")
        .Writes("MediaControlMarshaller", "mMediaControlXml"),
    {{XML_STR_MEDIA_CONTROL, &zt_media_control::kType}}};
