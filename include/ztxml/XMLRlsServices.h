// Resource list services (RFC 4826): the lists to which a resource list server takes subscriptions.
#ifndef ZTXML_INCLUDE_XMLRLSSERVICES_H
#define ZTXML_INCLUDE_XMLRLSSERVICES_H

#include "ztxml/XMLResourceList.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

struct RlsServicesBinding;

/// The element "package".
class zt_ns_rls_services_packageType
    : public ZtTyped<zt_ns_rls_services_packageType, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The name of an event package, the element's text (copied).
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  ZtText m_Value;
};

/// The element "packages": what can be subscribed to.
class zt_ns_rls_services_packagesType
    : public ZtTyped<zt_ns_rls_services_packagesType, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_rls_services_packageType (taken).
  int setPackageListValue(ZtSingleElementList* list) { return m_Packages.Set(list); }
  ZtListOf<zt_ns_rls_services_packageType>* getPackageListValue() const { return m_Packages; }
  /// Takes `package`; returns 0 when it is null, has an owner, or there is no memory.
  int addPackage(zt_ns_rls_services_packageType* package) { return m_Packages.Add(package); }

 private:
  ZtChildListOf<zt_ns_rls_services_packageType> m_Packages;
};

/// The element "service". Texts are copied; null means absent.
class zt_ns_rls_services_serviceType
    : public ZtTyped<zt_ns_rls_services_serviceType, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The URI to subscribe to; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// The URI of the list, when the list is kept elsewhere.
  int setResourceListValue(const char* uri) { return m_ResourceList.Assign(uri); }
  const char* getResourceListValue() const { return m_ResourceList.Get(); }
  /// Takes the list itself, which ResourceListsDataBinder makes; null for none. It is written only
  /// when the URI above is null.
  int setListValue(zt_listType* list) { return m_List.Set(list); }
  zt_listType* getListValue() const { return m_List; }
  /// Takes the packages; null for none.
  int setPackagesValue(zt_ns_rls_services_packagesType* packages) {
    return m_Packages.Set(packages);
  }
  zt_ns_rls_services_packagesType* getPackagesValue() const { return m_Packages; }

 private:
  ZtText m_Uri;
  ZtText m_ResourceList;
  ZtChildOf<zt_listType> m_List;
  ZtChildOf<zt_ns_rls_services_packagesType> m_Packages;
};

/// The root element "rls-services".
class zt_rls_services : public ZtTyped<zt_rls_services, ZtKeepsElements<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_rls_services_serviceType (taken).
  int setServiceListValue(ZtSingleElementList* list) { return m_Services.Set(list); }
  ZtListOf<zt_ns_rls_services_serviceType>* getServiceListValue() const { return m_Services; }
  /// Takes `service`; returns 0 when it is null, has an owner, or there is no memory.
  int addService(zt_ns_rls_services_serviceType* service) { return m_Services.Add(service); }

 private:
  ZtChildListOf<zt_ns_rls_services_serviceType> m_Services;
};

/// The context of resource list services, XML_SCHEMA_RLS_SERVICES.
class RlsServicesContext : public ZtDescribedBy<RlsServicesContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class RlsServicesDataBinder : public ZtDescribedBy<RlsServicesContext, ZtFactory> {
 public:
  zt_ns_rls_services_serviceType* CreateServiceElement() { return Make(); }
  zt_ns_rls_services_packagesType* CreatePackagesElement() { return Make(); }
  zt_ns_rls_services_packageType* CreatePackageElement() { return Make(); }
};

/// Writes a zt_rls_services. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class RlsServicesMarshaller : public ZtDescribedBy<RlsServicesContext, ZtMarshaller> {
 public:
  int AddRlsServicesElementToXml(zt_rls_services* services) { return Write(services); }
  int AddServiceElementToXml(zt_ns_rls_services_serviceType* service) { return Write(service); }
  int AddPackagesElementToXml(zt_ns_rls_services_packagesType* packages) { return Write(packages); }
  int AddPackageElementToXml(zt_ns_rls_services_packageType* package) { return Write(package); }
};

/// Reads a "rls-services" document, with any prefixes.
class XMLRlsServicesDecoder : public ZtDecoderOf<RlsServicesContext> {};
/// Reads a zt_rls_services.
class RlsServicesUnMarshaller : public ZtDescribedBy<RlsServicesContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLRLSSERVICES_H
