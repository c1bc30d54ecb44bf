#include "ztxml/XMLImdn.h"  // declares XMLImdnDecoder
