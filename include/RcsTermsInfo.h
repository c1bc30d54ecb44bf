#include "XMLRcsTermsInfo.h"  // declares XMLRcsTermsInfoDecoder
