#include "XcapError.h"

#include "XMLXcapError.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_XCAP_ERROR, ZtElementKind::kRoot, &zt_xcap_error::kType},
    {XML_STR_NOT_UTF_8, ZtElementKind::kStructured, &zt_not_utf_8::kType},
    {XML_STR_CANNOT_DELETE, ZtElementKind::kStructured, &zt_cannot_delete::kType},
    {XML_STR_CONSTRAINT_FAILURE, ZtElementKind::kStructured, &zt_constraint_failure::kType},
    {XML_STR_NOT_WELL_FORMED, ZtElementKind::kStructured, &zt_not_well_formed::kType},
    {XML_STR_NOT_XML_ATT_VALUE, ZtElementKind::kStructured, &zt_not_xml_att_value::kType},
    {XML_STR_CANNOT_INSERT, ZtElementKind::kStructured, &zt_cannot_insert::kType},
    {XML_STR_NOT_XML_FRAG, ZtElementKind::kStructured, &zt_not_xml_frag::kType},
    {XML_STR_SCHEMA_VALIDATION_ERROR, ZtElementKind::kStructured,
     &zt_schema_validation_error::kType},
    {XML_STR_NO_PARENT, ZtElementKind::kStructured, &zt_no_parent::kType},
    {XML_STR_UNIQUENESS_FAILURE, ZtElementKind::kStructured, &zt_uniqueness_failure::kType},
    {XML_STR_EXISTS, ZtElementKind::kStructured, &zt_exists::kType},
    {XML_STR_EXTENSION, ZtElementKind::kStructured, &zt_extension::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLXcapErrorDecoder", "src/XcapError", ZtPrefixRule::kStrip).Names(kRows);

}  // namespace

XMLXcapErrorDecoder::XMLXcapErrorDecoder() : ZtSchemaDecoder(kGrammar) {}
