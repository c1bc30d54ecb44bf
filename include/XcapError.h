// XMLXcapErrorDecoder, which is declared with its document.
#include "XMLXcapError.h"
