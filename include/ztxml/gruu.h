// What XMLGruu.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_GRUU_H
#define ZTXML_INCLUDE_GRUU_H

#include "ztxml/XMLGruu.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_pub_gruu> : ztxml::RootIn<GruuContext> {};
template <>
struct ztxml::RootOf<zt_temp_gruu> : ztxml::RootIn<GruuContext> {};

#endif  // ZTXML_INCLUDE_GRUU_H
