// XMLResourceListsDecoder, which is declared with its document.
#include "XMLResourceList.h"
