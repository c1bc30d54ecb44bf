#include "ztxml/XMLXcapError.h"  // declares XMLXcapErrorDecoder
