#include "XMLPresence.h"  // declares XMLPresenceDecoder
