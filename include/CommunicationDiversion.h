// XMLCommunicationDiversionDecoder, which is declared with its document.
#include "XMLCommunicationDiversion.h"
