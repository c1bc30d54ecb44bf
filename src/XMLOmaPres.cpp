#include "XMLOmaPres.h"

#include "PresenceBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtPresenceFamily("src/XMLOmaPres");
}  // namespace

struct OmaPresBinding {
  using ServiceDescription = zt_ns_oma_pres_service_description;
  static constexpr ZtField kServiceDescription[] = {
      ztrow::TextElement(XML_STR_SERVICE_ID, &ServiceDescription::m_ServiceId),
      ztrow::TextElement(XML_STR_VERSION, &ServiceDescription::m_Version),
      ztrow::TextElement(XML_STR_DESCRIPTION, &ServiceDescription::m_Description),
      kZtOthers,
  };
  static_assert(ztrow::Sound(kServiceDescription));

  template <ZtExtraName kElement>
  static constexpr ZtField kText[] = {ztrow::OwnText(kElement, &ZtOmaPresText::m_Value)};

  // Intended: willingness, session-participation, registration-state, barring-state and
  // overriding-willingness are neither read nor written: their types are for callers that offer
  // them texts.
  template <class T, ZtExtraName kElement>
  static constexpr ZtElementType Text(const char* className, const char* label) {
    return ZtTypeOf<T>(className, label, kFamily).Fields(kText<kElement>);
  }
};

const ZtElementType zt_ns_oma_pres_service_description::kType =
    ZtTypeOf<zt_ns_oma_pres_service_description>("zt_ns_oma_pres_service_description",
                                                 "service-description", kFamily)
        .Fields(OmaPresBinding::kServiceDescription)
        .Writer(XML_STR_SERVICE_DESCRIPTION, "AddServiceDescriptionElementToXml", XML_STR_OP);

const ZtElementType zt_ns_oma_pres_willingness::kType =
    OmaPresBinding::Text<zt_ns_oma_pres_willingness, ZT_STR_WILLINGNESS>(
        "zt_ns_oma_pres_willingness", "willingness");
const ZtElementType zt_ns_oma_pres_session_participation::kType =
    OmaPresBinding::Text<zt_ns_oma_pres_session_participation, ZT_STR_SESSION_PARTICIPATION>(
        "zt_ns_oma_pres_session_participation", "session-participation");
const ZtElementType zt_ns_oma_pres_registration_state::kType =
    OmaPresBinding::Text<zt_ns_oma_pres_registration_state, ZT_STR_REGISTRATION_STATE>(
        "zt_ns_oma_pres_registration_state", "registration-state");
const ZtElementType zt_ns_oma_pres_barring_state::kType =
    OmaPresBinding::Text<zt_ns_oma_pres_barring_state, ZT_STR_BARRING_STATE>(
        "zt_ns_oma_pres_barring_state", "barring-state");
const ZtElementType zt_ns_oma_pres_overriding_willingness::kType =
    OmaPresBinding::Text<zt_ns_oma_pres_overriding_willingness, ZT_STR_OVERRIDING_WILLINGNESS>(
        "zt_ns_oma_pres_overriding_willingness", "overriding-willingness");
