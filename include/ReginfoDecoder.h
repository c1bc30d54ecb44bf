#include "XMLReginfo.h"  // declares XMLReginfoDecoder
