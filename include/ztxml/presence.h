// What XMLPresence.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_PRESENCE_H
#define ZTXML_INCLUDE_PRESENCE_H

#include "ztxml/XMLPresence.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_presence> : ztxml::RootIn<PresenceContext> {};

#endif  // ZTXML_INCLUDE_PRESENCE_H
