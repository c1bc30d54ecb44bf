#include "ztxml/XMLCommunicationBarring.h"  // declares XMLCommunicationBarringDecoder
