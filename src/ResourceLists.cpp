#include "ResourceLists.h"

#include "XMLResourceList.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RESOURCE_LISTS, ZtElementKind::kRoot, &zt_resource_lists::kType},
    {XML_STR_LIST, ZtElementKind::kStructured, &zt_listType::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_entryType::kType},
    {XML_STR_ENTRY_REF, ZtElementKind::kStructured, &zt_entry_refType::kType},
    {XML_STR_EXTERNAL, ZtElementKind::kStructured, &zt_externalType::kType},
    {XML_STR_DISPLAY_NAME, ZtElementKind::kTextBearing, &zt_display_nameType::kType},
};

constexpr ZtGrammar kGrammar(
    "XMLResourceListsDecoder", "src/ResourceLists",
    "XMLResourceListsDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kStrip, kRows);

}  // namespace

XMLResourceListsDecoder::XMLResourceListsDecoder() : ZtSchemaDecoder(kGrammar) {}
