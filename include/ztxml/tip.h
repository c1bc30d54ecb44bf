// What XMLTIP.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_TIP_H
#define ZTXML_INCLUDE_TIP_H

#include "ztxml/XMLTIP.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_terminating_identity_presentation> : ztxml::RootIn<TIPContext> {};

#endif  // ZTXML_INCLUDE_TIP_H
