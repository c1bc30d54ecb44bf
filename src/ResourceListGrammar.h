// The element names of a resource list, which the decoders of two documents share.
#ifndef ZTXML_SRC_RESOURCELISTGRAMMAR_H
#define ZTXML_SRC_RESOURCELISTGRAMMAR_H

#include "XMLResourceList.h"
#include "binding/ZtGrammar.h"

inline constexpr ZtGrammarRow kResourceListRows[] = {
    {XML_STR_LIST, ZtElementKind::kStructured, &zt_listType::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_entryType::kType},
    {XML_STR_ENTRY_REF, ZtElementKind::kStructured, &zt_entry_refType::kType},
    {XML_STR_EXTERNAL, ZtElementKind::kStructured, &zt_externalType::kType},
    {XML_STR_DISPLAY_NAME, ZtElementKind::kTextBearing, &zt_display_nameType::kType},
};

#endif  // ZTXML_SRC_RESOURCELISTGRAMMAR_H
