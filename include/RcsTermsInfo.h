// XMLRcsTermsInfoDecoder, which is declared with its document.
#include "XMLRcsTermsInfo.h"
