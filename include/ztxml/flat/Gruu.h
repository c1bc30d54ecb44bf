#include "ztxml/XMLGruu.h"  // declares XMLGruuDecoder
