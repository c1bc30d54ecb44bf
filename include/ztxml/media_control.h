// What XMLMediaControl.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_MEDIA_CONTROL_H
#define ZTXML_INCLUDE_MEDIA_CONTROL_H

#include "ztxml/XMLMediaControl.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_media_control> : ztxml::RootIn<MediaControlContext> {};

#endif  // ZTXML_INCLUDE_MEDIA_CONTROL_H
