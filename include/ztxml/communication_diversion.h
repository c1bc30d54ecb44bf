// What XMLCommunicationDiversion.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_COMMUNICATION_DIVERSION_H
#define ZTXML_INCLUDE_COMMUNICATION_DIVERSION_H

#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_communication_diversion> : ztxml::RootIn<CommunicationDiversionContext> {};

#endif  // ZTXML_INCLUDE_COMMUNICATION_DIVERSION_H
