#include "XMLMediaControl.h"  // declares XMLMediaControlDecoder
