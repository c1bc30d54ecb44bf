#include "ztxml/XMLRlsServices.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {
constexpr char kSource[] = "src/XMLRlsServices";
constexpr ZtNote kNotes[] = {{"service", XML_STR_URI, kZtLogError,
                              "<XML Module>: AddServiceElementToXml Uri mandatory attribute"}};
constexpr ZtFamily kFamily = ZtPlainFamily(kSource).Notes(kNotes);

constexpr ZtExtras kNamespace = {{{XML_STR_URN_IETF_PARAMS_XML_NS_RLS_SERVICES, XML_STR_ZT_NULL}}};

using Service = zt_ns_rls_services_serviceType;
using Packages = zt_ns_rls_services_packagesType;
using Package = zt_ns_rls_services_packageType;
}  // namespace

const ZtElementType zt_ns_rls_services_packageType::kType = {
    ZtTypeOf<zt_ns_rls_services_packageType>("zt_ns_rls_services_packageType", "package", kFamily)
        .Writer(XML_STR_PACKAGE, "AddPackageElementToXml"),
    {ztrow::OwnText(XML_STR_PACKAGE, ZT_AT(Package, m_Value)).FreeText(), kZtOthers}};
const ZtElementType zt_ns_rls_services_packagesType::kType = {
    ZtTypeOf<zt_ns_rls_services_packagesType>("zt_ns_rls_services_packagesType", "packages",
                                              kFamily)
        .Writer(XML_STR_PACKAGES, "AddPackagesElementToXml"),
    {ztrow::Children(XML_STR_PACKAGE, ZT_AT(Packages, m_Packages), Package::kType), kZtOthers}};
// Intended: of a service that has both the address of a list and a list only the address is
// written, even when it is empty; callers set one of the two.
const ZtElementType zt_ns_rls_services_serviceType::kType = {
    ZtTypeOf<zt_ns_rls_services_serviceType>("zt_ns_rls_services_serviceType", "service", kFamily)
        .Writer(XML_STR_SERVICE, "AddServiceElementToXml"),
    {ztrow::Attribute(XML_STR_URI, ZT_AT(Service, m_Uri)).Required(), kZtExtras,
     ztrow::TextElement(XML_STR_RESOURCE_LIST, ZT_AT(Service, m_ResourceList)).OneOf(),
     ztrow::Child(XML_STR_LIST, ZT_AT(Service, m_List), zt_listType::kType).OneOf(),
     ztrow::Child(XML_STR_PACKAGES, ZT_AT(Service, m_Packages), Packages::kType), kZtOthers}};
const ZtElementType zt_rls_services::kType = {
    ZtTypeOf<zt_rls_services>("zt_rls_services", "rls-services", kFamily)
        .Writer(XML_STR_RLS_SERVICES, "AddRlsServicesElementToXml")
        .With(kNamespace)
        .Root(),
    {ztrow::Children(XML_STR_SERVICE, ZT_AT(zt_rls_services, m_Services), Service::kType),
     ZtExtensibleRows::kElements<ZtObject>}};

const ZtDocument RlsServicesContext::kDocument = {
    ZtDocumentOf<RlsServicesContext, XMLRlsServicesDecoder, RlsServicesUnMarshaller,
                 RlsServicesMarshaller, RlsServicesDataBinder>(kSource)
        .Schema(XML_SCHEMA_RLS_SERVICES, "RlsServices", "urn:ietf:params:xml:ns:rls-services",
                "rls-services")
        .Decodes("XMLRlsServicesDecoder", "src/RlsServices", ZtPrefixRule::kStrip)
        .Reads("RlsServicesUnMarshaller")
        .Writes("RlsServicesMarshaller", "mRlsServicesXml"),
    {{XML_STR_RLS_SERVICES, &zt_rls_services::kType}}};
