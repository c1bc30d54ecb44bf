// What XMLCommunicationWaiting.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_COMMUNICATION_WAITING_H
#define ZTXML_INCLUDE_COMMUNICATION_WAITING_H

#include "ztxml/XMLCommunicationWaiting.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_communication_waiting> : ztxml::RootIn<CommunicationWaitingContext> {};

#endif  // ZTXML_INCLUDE_COMMUNICATION_WAITING_H
