#include "XMLOIP.h"  // declares XMLOIPDecoder
