// What XMLResourceList.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_RESOURCE_LISTS_H
#define ZTXML_INCLUDE_RESOURCE_LISTS_H

#include "ztxml/XMLResourceList.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_resource_lists> : ztxml::RootIn<ResourceListsContext> {};

#endif  // ZTXML_INCLUDE_RESOURCE_LISTS_H
