#include "ztxml/XMLPresence.h"  // declares XMLPresenceDecoder
