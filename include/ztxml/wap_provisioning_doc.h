// What XMLWapProvisioningDoc.h declares, with the C++ interface.
#ifndef ZTXML_INCLUDE_WAP_PROVISIONING_DOC_H
#define ZTXML_INCLUDE_WAP_PROVISIONING_DOC_H

#include "ztxml/XMLWapProvisioningDoc.h"
#include "ztxml/document.h"

template <>
struct ztxml::RootOf<zt_wap_provisioning_doc> : ztxml::RootIn<WapProvisioningDocContext> {};

#endif  // ZTXML_INCLUDE_WAP_PROVISIONING_DOC_H
