#include "XMLRlmi.h"  // declares XMLListDecoder
