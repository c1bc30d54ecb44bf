#include "XMLXcapDirectory.h"  // declares XMLXcapDirectoryDecoder
