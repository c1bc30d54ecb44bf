// XMLReginfoDecoder, which is declared with its document.
#include "XMLReginfo.h"
