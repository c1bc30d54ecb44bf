#include "XMLTIP.h"  // declares XMLTIPDecoder
