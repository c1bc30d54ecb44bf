// XMLCWIndicationDecoder, which is declared with its document.
#include "XMLCWIndication.h"
