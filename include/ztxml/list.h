// What XMLRlmi.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_LIST_H
#define ZTXML_INCLUDE_LIST_H

#include "ztxml/XMLRlmi.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_list> : ztxml::RootIn<ListContext> {};

#endif  // ZTXML_INCLUDE_LIST_H
