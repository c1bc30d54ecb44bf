// What XMLIsComposing.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_IS_COMPOSING_H
#define ZTXML_INCLUDE_IS_COMPOSING_H

#include "ztxml/XMLIsComposing.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_isComposing> : ztxml::RootIn<IsComposingContext> {};

#endif  // ZTXML_INCLUDE_IS_COMPOSING_H
