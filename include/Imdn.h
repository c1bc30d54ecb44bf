#include "XMLImdn.h"  // declares XMLImdnDecoder
