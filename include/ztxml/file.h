// What XMLFt.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_FILE_H
#define ZTXML_INCLUDE_FILE_H

#include "ztxml/XMLFt.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_file> : ztxml::RootIn<FileContext> {};

#endif  // ZTXML_INCLUDE_FILE_H
