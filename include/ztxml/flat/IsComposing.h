#include "ztxml/XMLIsComposing.h"  // declares XMLIsComposingDecoder
