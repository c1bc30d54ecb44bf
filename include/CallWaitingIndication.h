// XMLCallWaitingIndicationDecoder, which is declared with its document.
#include "XMLCallWaitingIndication.h"
