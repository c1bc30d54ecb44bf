// What XMLBootstrappingInfo.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_BOOTSTRAPPING_INFO_H
#define ZTXML_INCLUDE_BOOTSTRAPPING_INFO_H

#include "ztxml/XMLBootstrappingInfo.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_bootstrappinginfo> : ztxml::RootIn<BootstrappingInfoContext> {};

#endif  // ZTXML_INCLUDE_BOOTSTRAPPING_INFO_H
