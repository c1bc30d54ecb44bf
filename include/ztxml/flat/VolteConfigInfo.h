#include "ztxml/XMLVolteConfigInfo.h"  // declares XMLVolteConfigInfoDecoder
