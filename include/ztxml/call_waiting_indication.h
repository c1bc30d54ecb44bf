// What XMLCallWaitingIndication.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_CALL_WAITING_INDICATION_H
#define ZTXML_INCLUDE_CALL_WAITING_INDICATION_H

#include "ztxml/XMLCallWaitingIndication.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_3gpp_ims> : ztxml::RootIn<CallWaitingIndicationContext> {};

#endif  // ZTXML_INCLUDE_CALL_WAITING_INDICATION_H
