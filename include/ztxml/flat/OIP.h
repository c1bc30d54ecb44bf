#include "ztxml/XMLOIP.h"  // declares XMLOIPDecoder
