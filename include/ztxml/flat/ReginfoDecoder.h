#include "ztxml/XMLReginfo.h"  // declares XMLReginfoDecoder
