#include "XMLCommunicationWaiting.h"  // declares XMLCommunicationWaitingDecoder
