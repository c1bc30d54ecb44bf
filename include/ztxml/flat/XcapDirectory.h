#include "ztxml/XMLXcapDirectory.h"  // declares XMLXcapDirectoryDecoder
