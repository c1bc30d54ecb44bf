#include "XMLCommunicationDiversion.h"  // declares XMLCommunicationDiversionDecoder
