// What XMLCommunicationBarring.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_COMMUNICATION_BARRING_H
#define ZTXML_INCLUDE_COMMUNICATION_BARRING_H

#include "ztxml/XMLCommunicationBarring.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_incoming_communication_barring>
    : ztxml::RootIn<CommunicationBarringContext> {};
template <>
struct ztxml::RootOf<zt_outgoing_communication_barring>
    : ztxml::RootIn<CommunicationBarringContext> {};

#endif  // ZTXML_INCLUDE_COMMUNICATION_BARRING_H
