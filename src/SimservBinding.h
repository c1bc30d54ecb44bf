// The rows that every supplementary service has.
#ifndef ZTXML_SRC_SIMSERVBINDING_H
#define ZTXML_SRC_SIMSERVBINDING_H

#include "XMLSimservsXcap.h"
#include "binding/ZtDocumentTable.h"

// Booleans as documents write them. Other texts leave the field as it is.
inline constexpr ZtEnumTable kBoolean = {kBooleanSlots, 2, 2, kZtKeepsValue, false};

inline constexpr char kSimservsNamespace[] = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";

struct SimservBinding {
  static constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLSimservsXcap");

  static constexpr ZtField kActive =
      ztrow::Attribute(XML_STR_ACTIVE, &zt_ns_xcap_simservType::m_Active, kBoolean);
  static constexpr ZtField kActiveOrElseNot =
      ztrow::Attribute(XML_STR_ACTIVE, &zt_ns_xcap_simservType::m_Active, kTrueOrElseFalse);

  // A service that is only switched on and off.
  static constexpr ZtField kSwitch[] = {ZtExtensibleRows::kAttributes<ZtObject>, kActiveOrElseNot,
                                        ZtExtensibleRows::kElements<ZtObject>};
  template <class T>
  static constexpr ZtElementType Switch(ZtNameId element, const char* className, const char* label,
                                        const char* writer) {
    return ZtTypeOf<T>(className, label, kFamily)
        .Fields(kSwitch)
        .Writer(element, writer, XML_STR_SS)
        .UnknownElement(kCannotAccommodate)
        .SelfClosing()
        .Root();
  }

  static constexpr ZtDocumentLines kSwitchLines = {
      "<XML Module>: %s::UnMarshall: pstring is %s",
      "<XML Module>: %s::UnMarshall(XMLFile* pfile): pstring is %s"};

  static constexpr ZtField kService[] = {ZtExtensibleRows::kAttributes<ZtObject>, kActive,
                                         ZtExtensibleRows::kElements<ZtObject>};
  static constexpr ZtField kMedia[] = {
      ztrow::OwnText(XML_STR_MEDIA, &zt_ns_xcap_media_type::m_Media)};
  static constexpr ZtField kPresenceStatus[] = {
      ztrow::OwnText(XML_STR_PRESENCE_STATUS, &zt_presence_status_activity_type::m_Activity)};
  static_assert(ztrow::Sound(kSwitch) && ztrow::Sound(kService));
};

#endif  // ZTXML_SRC_SIMSERVBINDING_H
