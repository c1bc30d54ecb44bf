#include "ztxml/XMLFt.h"  // declares XMLFileDecoder
