#include "XMLSimservs.h"  // declares XMLSimservsDecoder
