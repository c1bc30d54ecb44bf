#include "XMLVolteConfigInfo.h"  // declares XMLVolteConfigInfoDecoder
