#include "ztxml/XMLOmaPres.h"

#include "documents/PresenceBinding.h"

namespace {
constexpr ZtFamily kFamily = ZtPresenceFamily("src/XMLOmaPres");
}  // namespace

const ZtElementType zt_ns_oma_pres_service_description::kType = {
    ZtTypeOf<zt_ns_oma_pres_service_description>("zt_ns_oma_pres_service_description",
                                                 "service-description", kFamily)
        .Writer(XML_STR_SERVICE_DESCRIPTION, "AddServiceDescriptionElementToXml", XML_STR_OP),
    {ztrow::TextElement(XML_STR_SERVICE_ID, ZT_AT(zt_ns_oma_pres_service_description, m_ServiceId))
         .Must(),
     ztrow::TextElement(XML_STR_VERSION, ZT_AT(zt_ns_oma_pres_service_description, m_Version))
         .Must(),
     ztrow::TextElement(XML_STR_DESCRIPTION,
                        ZT_AT(zt_ns_oma_pres_service_description, m_Description)),
     kZtOthers}};

// Intended: willingness, session-participation, registration-state, barring-state and
// overriding-willingness are neither read nor written: their types are for callers that fill them.
struct OmaPresBinding {
  static constexpr ZtField Text(ZtNameId element) {
    return ztrow::OwnText(element, ZT_AT(ZtOmaPresText, m_Value));
  }
};

const ZtElementType zt_ns_oma_pres_willingness::kType = {
    ZtTypeOf<zt_ns_oma_pres_willingness>("zt_ns_oma_pres_willingness", "willingness", kFamily),
    {OmaPresBinding::Text(ZT_STR_WILLINGNESS)}};
const ZtElementType zt_ns_oma_pres_session_participation::kType = {
    ZtTypeOf<zt_ns_oma_pres_session_participation>("zt_ns_oma_pres_session_participation",
                                                   "session-participation", kFamily),
    {OmaPresBinding::Text(ZT_STR_SESSION_PARTICIPATION)}};
const ZtElementType zt_ns_oma_pres_registration_state::kType = {
    ZtTypeOf<zt_ns_oma_pres_registration_state>("zt_ns_oma_pres_registration_state",
                                                "registration-state", kFamily),
    {OmaPresBinding::Text(ZT_STR_REGISTRATION_STATE)}};
const ZtElementType zt_ns_oma_pres_barring_state::kType = {
    ZtTypeOf<zt_ns_oma_pres_barring_state>("zt_ns_oma_pres_barring_state", "barring-state",
                                           kFamily),
    {OmaPresBinding::Text(ZT_STR_BARRING_STATE)}};
const ZtElementType zt_ns_oma_pres_overriding_willingness::kType = {
    ZtTypeOf<zt_ns_oma_pres_overriding_willingness>("zt_ns_oma_pres_overriding_willingness",
                                                    "overriding-willingness", kFamily),
    {OmaPresBinding::Text(ZT_STR_OVERRIDING_WILLINGNESS)}};
