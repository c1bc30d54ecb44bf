// XMLXcapDirectoryDecoder, which is declared with its document.
#include "XMLXcapDirectory.h"
