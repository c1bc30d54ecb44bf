// XMLImdnDecoder, which is declared with its document.
#include "XMLImdn.h"
