#include "XMLIsComposing.h"  // declares XMLIsComposingDecoder
