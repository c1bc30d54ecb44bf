#include "Presence.h"

#include "XMLPresence.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_PRESENCE, ZtElementKind::kRoot, &zt_presence::kType},
    {XML_STR_TUPLE, ZtElementKind::kStructured, &zt_tuple::kType},
    {XML_STR_STATUS, ZtElementKind::kStructured, &PresenceNameSpace::zt_status::kType},
    {XML_STR_CONTACT, ZtElementKind::kTextBearing, &zt_contact::kType},
    {XML_STR_NOTE, ZtElementKind::kTextBearing, &zt_note::kType},
    {XML_STR_SERVICE_DESCRIPTION, ZtElementKind::kStructured,
     &zt_ns_oma_pres_service_description::kType},
    {XML_STR_SERVCAPS, ZtElementKind::kStructured, &zt_ns_caps_servcaps::kType},
    {XML_STR_DUPLEX, ZtElementKind::kStructured, &zt_ns_caps_duplextype::kType},
    {XML_STR_SUPPORTED, ZtElementKind::kStructured, &zt_ns_caps_duplextypes::kType},
    {XML_STR_NOTSUPPORTED, ZtElementKind::kStructured, &zt_ns_caps_duplextypes::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLPresenceDecoder", "src/Presence", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLPresenceDecoder::XMLPresenceDecoder() : ZtSchemaDecoder(kGrammar) {}
