#include "XMLMediaControl.h"

#include "binding/ZtDocumentTable.h"

namespace {

constexpr char kSource[] = "src/XMLMediaControl";
constexpr ZtFamily kFamily = ZtPlainFamily(kSource);

constexpr ZtFlag kFlagText = {"%s::AddEmptyElementToXml: Received empty present false",
                              "%s::AddEmptyElementToXml: Received empty element is NULL"};
constexpr ZtElementType kFlag = ZtFlagOf(kFamily, "AddEmptyElementToXml", kFlagText);

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

struct MediaControlBinding {
  // Intended: a "picture_fast_update" that is set but not present leaves its element empty and
  // fails nothing; in a call-waiting indication such a flag fails the document.
  static constexpr ZtField kToEncoder[] = {
      ztrow::Child(XML_STR_PICTURE_FAST_UPDATE, &zt_to_encoder::m_PictureFastUpdate, kFlag)
          .Lenient(),
  };
  static constexpr ZtField kVcPrimitive[] = {
      ztrow::Child(XML_STR_TO_ENCODER, &zt_vc_primitive::m_ToEncoder, zt_to_encoder::kType),
  };
  static constexpr ZtField kMediaControl[] = {
      ztrow::Child(XML_STR_VC_PRIMITIVE, &zt_media_control::m_VcPrimitive, zt_vc_primitive::kType),
  };
  static_assert(ztrow::Sound(kToEncoder) && ztrow::Sound(kMediaControl));
};

const ZtElementType zt_to_encoder::kType =
    ZtTypeOf<zt_to_encoder>("zt_to_encoder", "to_encoder", kFamily)
        .Fields(MediaControlBinding::kToEncoder)
        .Writer(XML_STR_TO_ENCODER, "AddToEncoderElementToXml");

const ZtElementType zt_vc_primitive::kType =
    ZtTypeOf<zt_vc_primitive>("zt_vc_primitive", "vc_primitive", kFamily)
        .Fields(MediaControlBinding::kVcPrimitive)
        .Writer(XML_STR_VC_PRIMITIVE, "AddVcPrimitiveElementToXml");

const ZtElementType zt_media_control::kType =
    ZtTypeOf<zt_media_control>("zt_media_control", "media_control", kFamily)
        .Fields(MediaControlBinding::kMediaControl)
        .Writer(XML_STR_MEDIA_CONTROL, "AddMediaControlElementToXml")
        .Root();

// ---- Workers ------------------------------------------------------------------------------------

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
