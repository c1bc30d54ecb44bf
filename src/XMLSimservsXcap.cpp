#include "XMLSimservsXcap.h"

#include "SimservBinding.h"

const ZtElementType zt_ns_xcap_simservType::kType =
    ZtTypeOf<zt_ns_xcap_simservType>("zt_ns_xcap_simservType", "SimservType",
                                     SimservBinding::kFamily)
        .Fields(SimservBinding::kService)
        .UnknownElement(kCannotAccommodate);
const ZtElementType zt_ns_xcap_media_type::kType =
    ZtTypeOf<zt_ns_xcap_media_type>("zt_ns_xcap_media_type", "MediaType", SimservBinding::kFamily)
        .Fields(SimservBinding::kMedia)
        .Writer(XML_STR_MEDIA, nullptr, XML_STR_SS);
const ZtElementType zt_presence_status_activity_type::kType =
    ZtTypeOf<zt_presence_status_activity_type>(
        "zt_presence_status_activity_type", "PresenceStatusActivityType", SimservBinding::kFamily)
        .Fields(SimservBinding::kPresenceStatus);
const ZtElementType zt_external_list::kType =
    ZtTypeOf<zt_external_list>("zt_external_list", "ExternalList", SimservBinding::kFamily);
