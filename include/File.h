#include "XMLFt.h"  // declares XMLFileDecoder
