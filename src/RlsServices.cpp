#include "RlsServices.h"

#include "XMLRlsServices.h"
#include "binding/ZtGrammar.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RLS_SERVICES, ZtElementKind::kRoot, &zt_rls_services::kType},
    {XML_STR_SERVICE, ZtElementKind::kStructured, &zt_ns_rls_services_serviceType::kType},
    {XML_STR_PACKAGES, ZtElementKind::kStructured, &zt_ns_rls_services_packagesType::kType},
    {XML_STR_PACKAGE, ZtElementKind::kTextBearing, &zt_ns_rls_services_packageType::kType},
    {XML_STR_LIST, ZtElementKind::kStructured, &zt_listType::kType},
    {XML_STR_ENTRY, ZtElementKind::kStructured, &zt_entryType::kType},
    {XML_STR_ENTRY_REF, ZtElementKind::kStructured, &zt_entry_refType::kType},
    {XML_STR_EXTERNAL, ZtElementKind::kStructured, &zt_externalType::kType},
    {XML_STR_DISPLAY_NAME, ZtElementKind::kTextBearing, &zt_display_nameType::kType},
};

constexpr ZtGrammar kGrammar(
    "XMLRlsServicesDecoder", "src/RlsServices",
    "XMLRlsServicesDecoder :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory",
    ZtPrefixRule::kStrip, kRows);

}  // namespace

XMLRlsServicesDecoder::XMLRlsServicesDecoder() : ZtSchemaDecoder(kGrammar) {}
