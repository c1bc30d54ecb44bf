#include "RlsServices.h"

#include "ResourceListGrammar.h"
#include "XMLRlsServices.h"

namespace {

constexpr ZtGrammarRow kRows[] = {
    {XML_STR_RLS_SERVICES, ZtElementKind::kRoot, &zt_rls_services::kType},
    {XML_STR_SERVICE, ZtElementKind::kStructured, &zt_ns_rls_services_serviceType::kType},
    {XML_STR_PACKAGES, ZtElementKind::kStructured, &zt_ns_rls_services_packagesType::kType},
    {XML_STR_PACKAGE, ZtElementKind::kTextBearing, &zt_ns_rls_services_packageType::kType},
};

constexpr ZtGrammar kGrammar =
    ZtGrammar("XMLRlsServicesDecoder", "src/RlsServices", ZtPrefixRule::kStrip)
        .Names(kRows)
        .Shares(kResourceListRows);

}  // namespace

XMLRlsServicesDecoder::XMLRlsServicesDecoder() : ZtSchemaDecoder(kGrammar) {}
