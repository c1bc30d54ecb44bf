#include "XMLXcapError.h"  // declares XMLXcapErrorDecoder
