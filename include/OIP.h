// XMLOIPDecoder, which is declared with its document.
#include "XMLOIP.h"
