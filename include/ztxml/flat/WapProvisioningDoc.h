#include "ztxml/XMLWapProvisioningDoc.h"  // declares XMLWapProvisioningDocDecoder
