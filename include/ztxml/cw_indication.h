// What XMLCWIndication.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_CW_INDICATION_H
#define ZTXML_INCLUDE_CW_INDICATION_H

#include "ztxml/XMLCWIndication.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_ims_3gpp> : ztxml::RootIn<CWIndicationContext> {};

#endif  // ZTXML_INCLUDE_CW_INDICATION_H
