// XMLCommunicationBarringDecoder, which is declared with its document.
#include "XMLCommunicationBarring.h"
