#include "XMLCallWaitingIndication.h"  // declares XMLCallWaitingIndicationDecoder
