// What XMLImdn.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_IMDN_H
#define ZTXML_INCLUDE_IMDN_H

#include "ztxml/XMLImdn.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_imdn> : ztxml::RootIn<IMDNContext> {};

#endif  // ZTXML_INCLUDE_IMDN_H
