#include "XMLConferenceInfo.h"  // declares XMLConferenceInfoDecoder
