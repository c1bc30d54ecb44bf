#include "ztxml/XMLCommunicationWaiting.h"  // declares XMLCommunicationWaitingDecoder
