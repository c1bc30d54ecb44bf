// XMLCommunicationWaitingDecoder, which is declared with its document.
#include "XMLCommunicationWaiting.h"
