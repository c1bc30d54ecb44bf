#include "List.h"

#include "XMLRlmi.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_LIST, ZtElementKind::kRoot, &zt_list::kType},
    {XML_STR_RESOURCE, ZtElementKind::kStructured, &zt_resource::kType},
    {XML_STR_INSTANCE, ZtElementKind::kStructured, &zt_instance::kType},
    {XML_STR_NAME, ZtElementKind::kTextBearing, &zt_name::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLListDecoder", "src/List", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLListDecoder::XMLListDecoder() : ZtSchemaDecoder(kGrammar) {}
