// The rows that every supplementary service has.
#ifndef ZTXML_SRC_SIMSERVBINDING_H
#define ZTXML_SRC_SIMSERVBINDING_H

#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLSimservsXcap.h"

// Booleans: a text that is none leaves the field unchanged.
inline constexpr ZtEnumTable kBoolean = {kBooleanSlots, 2, 2, kZtKeepsValue, false};

inline constexpr char kSimservsNamespace[] = "http://uri.etsi.org/ngn/params/xml/simservs/xcap";

struct SimservBinding {
  static constexpr ZtFamily kFamily = ZtQuietFamily("src/XMLSimservsXcap");
  static constexpr ZtFamily kTellingFamily = kFamily.UnknownElement(kCannotAccommodate);
  static constexpr ZtField kAttributes = ZtExtensibleRows::kAttributes<ZtObject>;
  static constexpr ZtField kElements = ZtExtensibleRows::kElements<ZtObject>;

  static constexpr std::uint8_t kOn = 1;  // "true"
  static constexpr ZtField kActive =
      ztrow::Attribute(XML_STR_ACTIVE, ZT_AT(zt_ns_xcap_simservType, m_Active), kBoolean)
          .Default(kOn);
  static constexpr ZtField kActiveOrElseNot =
      ztrow::Attribute(XML_STR_ACTIVE, ZT_AT(zt_ns_xcap_simservType, m_Active), kTrueOrElseFalse)
          .Default(kOn);

  // A service that is only switched on and off.
  template <class T>
  static constexpr ZtTypeFacts Switch(ZtNameId element, const char* className, const char* label,
                                      const char* writer) {
    return ZtTypeOf<T>(className, label, kTellingFamily)
        .Writer(element, writer, XML_STR_SS)
        .Starts(ZtStartTag::kEmpty)
        .Root();
  }

  static constexpr ZtDocumentLines kSwitchLines = {
      "<XML Module>: %s::UnMarshall: pstring is %s",
      "<XML Module>: %s::UnMarshall(XMLFile* pfile): pstring is %s"};
};

#endif  // ZTXML_SRC_SIMSERVBINDING_H
