#include "ztxml/XMLMediaControl.h"  // declares XMLMediaControlDecoder
