#include "ztxml/XMLResourceList.h"  // declares XMLResourceListsDecoder
