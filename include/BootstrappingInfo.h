// XMLBootstrappingInfoDecoder, which is declared with its document.
#include "XMLBootstrappingInfo.h"
