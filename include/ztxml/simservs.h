// What XMLSimservs.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_SIMSERVS_H
#define ZTXML_INCLUDE_SIMSERVS_H

#include "ztxml/XMLSimservs.h"
#include "ztxml/communication_barring.h"
#include "ztxml/communication_diversion.h"
#include "ztxml/communication_waiting.h"
#include "ztxml/document.h"
#include "ztxml/oip.h"
#include "ztxml/tip.h"

template <>
struct ztxml::RootOf<zt_Simservs> : ztxml::RootIn<SimservsContext> {};

#endif  // ZTXML_INCLUDE_SIMSERVS_H
