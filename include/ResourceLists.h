#include "XMLResourceList.h"  // declares XMLResourceListsDecoder
