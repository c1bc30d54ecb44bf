// What XMLOIP.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_OIP_H
#define ZTXML_INCLUDE_OIP_H

#include "ztxml/XMLOIP.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_originating_identity_presentation> : ztxml::RootIn<OIPContext> {};

#endif  // ZTXML_INCLUDE_OIP_H
