#include "XMLGruu.h"  // declares XMLGruuDecoder
