#include "XMLWapProvisioningDoc.h"  // declares XMLWapProvisioningDocDecoder
