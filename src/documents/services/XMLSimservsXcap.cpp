#include "ztxml/XMLSimservsXcap.h"

#include "documents/services/SimservBinding.h"

const ZtElementType zt_ns_xcap_simservType::kType = {
    ZtTypeOf<zt_ns_xcap_simservType>("zt_ns_xcap_simservType", "SimservType",
                                     SimservBinding::kTellingFamily),
    {SimservBinding::kAttributes, SimservBinding::kActive, SimservBinding::kElements}};
const ZtElementType zt_ns_xcap_media_type::kType = {
    ZtTypeOf<zt_ns_xcap_media_type>("zt_ns_xcap_media_type", "MediaType", SimservBinding::kFamily)
        .Writer(XML_STR_MEDIA, nullptr, XML_STR_SS),
    {ztrow::OwnText(XML_STR_MEDIA, ZT_AT(zt_ns_xcap_media_type, m_Media)).FreeText()}};
// Intended: a "presence-status" is read as a flag; zt_presence_status_activity_type is for callers
// that fill it, and is not written.
const ZtElementType zt_presence_status_activity_type::kType = {
    ZtTypeOf<zt_presence_status_activity_type>(
        "zt_presence_status_activity_type", "PresenceStatusActivityType", SimservBinding::kFamily),
    {ztrow::OwnText(XML_STR_PRESENCE_STATUS, ZT_AT(zt_presence_status_activity_type, m_Activity))
         .FreeText()}};
// Intended: callers get an "external-list" without its content, and it is not written.
const ZtElementType zt_external_list::kType = {
    ZtTypeOf<zt_external_list>("zt_external_list", "ExternalList", SimservBinding::kFamily)};
