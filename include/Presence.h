// XMLPresenceDecoder, which is declared with its document.
#include "XMLPresence.h"
