// What XMLVolteConfigInfo.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_VOLTE_CONFIG_INFO_H
#define ZTXML_INCLUDE_VOLTE_CONFIG_INFO_H

#include "ztxml/XMLVolteConfigInfo.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_volte_config_info> : ztxml::RootIn<VolteConfigInfoContext> {};

#endif  // ZTXML_INCLUDE_VOLTE_CONFIG_INFO_H
