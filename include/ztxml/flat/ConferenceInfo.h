#include "ztxml/XMLConferenceInfo.h"  // declares XMLConferenceInfoDecoder
