// XMLVolteConfigInfoDecoder, which is declared with its document.
#include "XMLVolteConfigInfo.h"
