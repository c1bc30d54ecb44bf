#include "ConferenceInfo.h"

#include "XMLConferenceInfo.h"
#include "binding/ZtGrammar.h"

namespace {

// An element stands for something only inside its own parent: "entry" has four meanings, of which
// that of a role is a text.
constexpr ZtGrammarRow kRows[] = {
    {XML_STR_CONFERENCE_INFO, ZtElementKind::kRoot, &zt_conference_type::kType},
    {XML_STR_CONFERENCE_DESCRIPTION, ZtElementKind::kStructured,
     &zt_conference_description_type::kType, &zt_conference_type::kType},
    {XML_STR_HOST_INFO, ZtElementKind::kStructured, &zt_host_type::kType,
     &zt_conference_type::kType},
    {XML_STR_CONFERENCE_STATE, ZtElementKind::kStructured, &zt_conference_state_type::kType,
     &zt_conference_type::kType},
    {XML_STR_USERS, ZtElementKind::kStructured, &zt_users_type::kType, &zt_conference_type::kType},
    {XML_STR_SIDEBARS_BY_REF, ZtElementKind::kStructured, &zt_uris_type::kType,
     &zt_conference_type::kType},
    {XML_STR_SIDEBARS_BY_VAL, ZtElementKind::kStructured, &zt_sidebars_by_val_type::kType,
     &zt_conference_type::kType},
    {XML_STR_CONF_URIS, ZtElementKind::kStructured, &zt_uris_type::kType,
     &zt_conference_description_type::kType},
    {XML_STR_SERVICE_URIS, ZtElementKind::kStructured, &zt_uris_type::kType,
     &zt_conference_description_type::kType},
    {XML_STR_AVAILABLE_MEDIA, ZtElementKind::kStructured, &zt_conference_media_type::kType,
     &zt_conference_description_type::kType},
    {XML_STR_KEYWORDS, ZtElementKind::kEndBound, &zt_keywords_type::kType,
     &zt_conference_description_type::kType},
    {XML_STR_URIS, ZtElementKind::kStructured, &zt_uris_type::kType, &zt_host_type::kType},
    {XML_STR_USER, ZtElementKind::kStructured, &zt_user_type::kType, &zt_users_type::kType},
    {XML_STR_ASSOCIATED_AORS, ZtElementKind::kStructured, &zt_uris_type::kType,
     &zt_user_type::kType},
    {XML_STR_ROLES, ZtElementKind::kStructured, &zt_user_roles_type::kType, &zt_user_type::kType},
    {XML_STR_ENDPOINT, ZtElementKind::kStructured, &zt_endpoint_type::kType, &zt_user_type::kType},
    {XML_STR_LANGUAGES, ZtElementKind::kEndBound, &zt_user_languages_type::kType,
     &zt_user_type::kType},
    {XML_STR_REFERRED, ZtElementKind::kStructured, &zt_execution_type::kType,
     &zt_endpoint_type::kType},
    {XML_STR_JOINING_INFO, ZtElementKind::kStructured, &zt_execution_type::kType,
     &zt_endpoint_type::kType},
    {XML_STR_DISCONNECTION_INFO, ZtElementKind::kStructured, &zt_execution_type::kType,
     &zt_endpoint_type::kType},
    {XML_STR_MEDIA, ZtElementKind::kStructured, &zt_media_type::kType, &zt_endpoint_type::kType},
    {XML_STR_CALL_INFO, ZtElementKind::kStructured, &zt_call_type::kType, &zt_endpoint_type::kType},
    {XML_STR_SIP, ZtElementKind::kStructured, &zt_sip_dialog_id_type::kType, &zt_call_type::kType},
    {XML_STR_MODIFIED, ZtElementKind::kStructured, &zt_execution_type::kType, &zt_uri_type::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_uri_type::kType, &zt_uris_type::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_conference_medium_type::kType,
     &zt_conference_media_type::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_conference_type::kType,
     &zt_sidebars_by_val_type::kType},
};
constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLConferenceInfoDecoder", "src/ConferenceInfo", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLConferenceInfoDecoder::XMLConferenceInfoDecoder() : ZtSchemaDecoder(kGrammar) {}
