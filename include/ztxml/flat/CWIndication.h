#include "ztxml/XMLCWIndication.h"  // declares XMLCWIndicationDecoder
