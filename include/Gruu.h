// XMLGruuDecoder, which is declared with its document.
#include "XMLGruu.h"
