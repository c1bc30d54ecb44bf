#include "XMLRlsServices.h"  // declares XMLRlsServicesDecoder
