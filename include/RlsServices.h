// XMLRlsServicesDecoder, which is declared with its document.
#include "XMLRlsServices.h"
