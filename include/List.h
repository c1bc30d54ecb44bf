// XMLListDecoder, which is declared with its document.
#include "XMLRlmi.h"
