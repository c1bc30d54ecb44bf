#include "XMLBootstrappingInfo.h"  // declares XMLBootstrappingInfoDecoder
