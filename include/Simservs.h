// XMLSimservsDecoder, which is declared with its document.
#include "XMLSimservs.h"
