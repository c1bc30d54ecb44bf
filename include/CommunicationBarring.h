#include "XMLCommunicationBarring.h"  // declares XMLCommunicationBarringDecoder
