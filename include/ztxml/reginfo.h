// What XMLReginfo.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_REGINFO_H
#define ZTXML_INCLUDE_REGINFO_H

#include "ztxml/XMLReginfo.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_reginfo> : ztxml::RootIn<ReginfoContext> {};

#endif  // ZTXML_INCLUDE_REGINFO_H
