#include "XMLCWIndication.h"  // declares XMLCWIndicationDecoder
