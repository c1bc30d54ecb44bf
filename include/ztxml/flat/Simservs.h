#include "ztxml/XMLSimservs.h"  // declares XMLSimservsDecoder
