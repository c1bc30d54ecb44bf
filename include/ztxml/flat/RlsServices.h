#include "ztxml/XMLRlsServices.h"  // declares XMLRlsServicesDecoder
