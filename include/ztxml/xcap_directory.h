// What XMLXcapDirectory.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_XCAP_DIRECTORY_H
#define ZTXML_INCLUDE_XCAP_DIRECTORY_H

#include "ztxml/XMLXcapDirectory.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_xcap_directory> : ztxml::RootIn<XcapDirectoryContext> {};

#endif  // ZTXML_INCLUDE_XCAP_DIRECTORY_H
