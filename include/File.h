// XMLFileDecoder, which is declared with its document.
#include "XMLFt.h"
