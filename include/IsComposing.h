// XMLIsComposingDecoder, which is declared with its document.
#include "XMLIsComposing.h"
