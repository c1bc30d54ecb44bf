// XMLConferenceInfoDecoder, which is declared with its document.
#include "XMLConferenceInfo.h"
