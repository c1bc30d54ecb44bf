// XMLWapProvisioningDocDecoder, which is declared with its document.
#include "XMLWapProvisioningDoc.h"
