// A command to the peer's video encoder (RFC 5168).
//
// Elements own what they hold: setters copy texts, take objects, and free what they replace; null
// means absent. Texts are raw: callers escape them.
#ifndef ZTXML_INCLUDE_XMLMEDIACONTROL_H
#define ZTXML_INCLUDE_XMLMEDIACONTROL_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The element "to_encoder".
class zt_to_encoder : public ZtTyped<zt_to_encoder> {
 public:
  ZT_API static const ZtElementType kType;
  /// The command "picture_fast_update": send a full picture. None when null or not present.
  int setPictureFastUpdateValue(zt_empty_element_type* element) {
    return m_PictureFastUpdate.Set(element);
  }
  zt_empty_element_type* getPictureFastUpdateValue() const { return m_PictureFastUpdate; }

 private:
  ZtChildOf<zt_empty_element_type> m_PictureFastUpdate;
};

/// The element "vc_primitive".
class zt_vc_primitive : public ZtTyped<zt_vc_primitive> {
 public:
  ZT_API static const ZtElementType kType;
  /// A command to the encoder.
  int setToEncoderValue(zt_to_encoder* element) { return m_ToEncoder.Set(element); }
  zt_to_encoder* getToEncoderValue() const { return m_ToEncoder; }

 private:
  ZtChildOf<zt_to_encoder> m_ToEncoder;
};

/// The root element "media_control".
class zt_media_control : public ZtTyped<zt_media_control, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// What is asked of the encoder.
  int setVcPrimitiveValue(zt_vc_primitive* element) { return m_VcPrimitive.Set(element); }
  zt_vc_primitive* getVcPrimitiveValue() const { return m_VcPrimitive; }

 private:
  ZtChildOf<zt_vc_primitive> m_VcPrimitive;
};

/// The context of this document, XML_SCHEMA_MEDIA_CONTROL.
class MediaControlContext : public ZtDescribedBy<MediaControlContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class ZT_API MediaControlDataBinder : public ZtDescribedBy<MediaControlContext, ZtFactory> {
 public:
  zt_vc_primitive* CreateVcPrimitiveElement() { return Make(); }
  zt_to_encoder* CreateToEncoderElement() { return Make(); }
  zt_empty_element_type* CreatePictureFastUpdateElement();
};

/// Writes a zt_media_control. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class ZT_API MediaControlMarshaller : public ZtDescribedBy<MediaControlContext, ZtMarshaller> {
 public:
  int AddMediaControlElementToXml(zt_media_control* control) { return Write(control); }
  int AddVcPrimitiveElementToXml(zt_vc_primitive* primitive) { return Write(primitive); }
  int AddToEncoderElementToXml(zt_to_encoder* command) { return Write(command); }
  int AddEmptyElementToXml(zt_empty_element_type* flag);
};

/// Reads a "media_control" document, with any prefixes.
class XMLMediaControlDecoder : public ZtDecoderOf<MediaControlContext> {};
/// Reads a zt_media_control.
class MediaControlUnMarshaller : public ZtDescribedBy<MediaControlContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLMEDIACONTROL_H
