// XMLTIPDecoder, which is declared with its document.
#include "XMLTIP.h"
