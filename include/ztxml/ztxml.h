// The C++ interface with all documents.
#ifndef ZTXML_INCLUDE_ZTXML_H
#define ZTXML_INCLUDE_ZTXML_H

#include "ztxml/bootstrapping_info.h"
#include "ztxml/call_waiting_indication.h"
#include "ztxml/communication_barring.h"
#include "ztxml/communication_diversion.h"
#include "ztxml/communication_waiting.h"
#include "ztxml/conference_info.h"
#include "ztxml/cw_indication.h"
#include "ztxml/document.h"
#include "ztxml/file.h"
#include "ztxml/gruu.h"
#include "ztxml/imdn.h"
#include "ztxml/is_composing.h"
#include "ztxml/list.h"
#include "ztxml/media_control.h"
#include "ztxml/oip.h"
#include "ztxml/presence.h"
#include "ztxml/rcs_terms_info.h"
#include "ztxml/reginfo.h"
#include "ztxml/resource_lists.h"
#include "ztxml/rls_services.h"
#include "ztxml/simservs.h"
#include "ztxml/state.h"
#include "ztxml/tip.h"
#include "ztxml/volte_config_info.h"
#include "ztxml/wap_provisioning_doc.h"
#include "ztxml/xcap_directory.h"
#include "ztxml/xcap_error.h"

#endif  // ZTXML_INCLUDE_ZTXML_H
