#include "ztxml/XMLCommunicationDiversion.h"  // declares XMLCommunicationDiversionDecoder
