// XMLMediaControlDecoder, which is declared with its document.
#include "XMLMediaControl.h"
