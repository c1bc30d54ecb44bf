// What XMLRcsTermsInfo.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_RCS_TERMS_INFO_H
#define ZTXML_INCLUDE_RCS_TERMS_INFO_H

#include "ztxml/XMLRcsTermsInfo.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_rcs_terms_info> : ztxml::RootIn<RcsTermsInfoContext> {};

#endif  // ZTXML_INCLUDE_RCS_TERMS_INFO_H
