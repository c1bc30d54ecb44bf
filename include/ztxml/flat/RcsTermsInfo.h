#include "ztxml/XMLRcsTermsInfo.h"  // declares XMLRcsTermsInfoDecoder
