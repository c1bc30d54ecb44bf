// What XMLXcapError.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_XCAP_ERROR_H
#define ZTXML_INCLUDE_XCAP_ERROR_H

#include "ztxml/XMLXcapError.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_xcap_error> : ztxml::RootIn<XcapErrorContext> {};

#endif  // ZTXML_INCLUDE_XCAP_ERROR_H
