// What XMLConferenceInfo.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_CONFERENCE_INFO_H
#define ZTXML_INCLUDE_CONFERENCE_INFO_H

#include "ztxml/XMLConferenceInfo.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_conference_type> : ztxml::RootIn<ConferenceInfoContext> {};

#endif  // ZTXML_INCLUDE_CONFERENCE_INFO_H
