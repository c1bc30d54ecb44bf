#include "ztxml/XMLBootstrappingInfo.h"  // declares XMLBootstrappingInfoDecoder
