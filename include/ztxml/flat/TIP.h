#include "ztxml/XMLTIP.h"  // declares XMLTIPDecoder
