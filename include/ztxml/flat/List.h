#include "ztxml/XMLRlmi.h"  // declares XMLListDecoder
