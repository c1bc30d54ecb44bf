#include "ztxml/XMLCallWaitingIndication.h"  // declares XMLCallWaitingIndicationDecoder
