// What XMLRlsServices.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_RLS_SERVICES_H
#define ZTXML_INCLUDE_RLS_SERVICES_H

#include "ztxml/XMLRlsServices.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_rls_services> : ztxml::RootIn<RlsServicesContext> {};

#endif  // ZTXML_INCLUDE_RLS_SERVICES_H
