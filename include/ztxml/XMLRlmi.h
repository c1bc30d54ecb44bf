// Resource list meta-information (RFC 4662): the states of the subscriptions to a list's resources.
#ifndef ZTXML_INCLUDE_XMLRLMI_H
#define ZTXML_INCLUDE_XMLRLMI_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

struct RlmiBinding;

/// The state of a subscription to a resource.
enum zt_instance_state_enum : unsigned {
  ZT_INSTANCE_STATE_ACTIVE,
  ZT_INSTANCE_STATE_PENDING,
  ZT_INSTANCE_STATE_TERMINATED,
  ZT_INSTANCE_STATE_ABSENT  ///< missing or not understood; cannot be written
};

/// The element "name": what to show for a list or a resource.
class zt_name : public ZtTyped<zt_name, ZtKeepsElements<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The element's text (copied). Raw text, to be escaped by the caller.
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  ZtText m_Value;
};

/// The element "instance": one subscription to a resource. Here and below texts are copied, and
/// null means absent.
class zt_instance : public ZtTyped<zt_instance, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// Tells the instances of one resource apart; the element cannot be written without it.
  int setIdValue(const char* id) { return m_Id.Assign(id); }
  const char* getIdValue() const { return m_Id.Get(); }
  /// The element cannot be written without it.
  int setStateValue(zt_instance_state_enum state) { return m_State.Set(state); }
  zt_instance_state_enum getStateValue() const { return m_State; }
  std::optional<zt_instance_state_enum> state() const {
    return m_State.Stated(ZT_INSTANCE_STATE_ABSENT);
  }
  /// Why the subscription was terminated.
  int setReasonValue(const char* reason) { return m_Reason.Assign(reason); }
  const char* getReasonValue() const { return m_Reason.Get(); }
  /// The Content-ID of the body part with the resource's state.
  int setCidValue(const char* cid) { return m_Cid.Assign(cid); }
  const char* getCidValue() const { return m_Cid.Get(); }

 private:
  ZtText m_Id;
  ZtNumber m_State = ZT_INSTANCE_STATE_ABSENT;
  ZtText m_Reason;
  ZtText m_Cid;
};

/// The element "resource".
class zt_resource : public ZtTyped<zt_resource, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The resource's URI; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// A list of zt_name (taken).
  int setNameListValue(ZtSingleElementList* list) { return m_Names.Set(list); }
  ZtListOf<zt_name>* getNameListValue() const { return m_Names; }
  /// Takes `name`; returns 0 when it is null, has an owner, or there is no memory.
  int addName(zt_name* name) { return m_Names.Add(name); }
  /// A list of zt_instance (taken).
  int setInstanceListValue(ZtSingleElementList* list) { return m_Instances.Set(list); }
  ZtListOf<zt_instance>* getInstanceListValue() const { return m_Instances; }
  /// Takes `instance`; returns 0 when it is null, has an owner, or there is no memory.
  int addInstance(zt_instance* instance) { return m_Instances.Add(instance); }

 private:
  ZtText m_Uri;
  ZtChildListOf<zt_name> m_Names;
  ZtChildListOf<zt_instance> m_Instances;
};

/// The root element "list".
class zt_list : public ZtTyped<zt_list, ZtExtensible<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The list's URI; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// Counted up from one document to the next; always written.
  int setVersionValue(unsigned int version) { return m_Version.Set(version); }
  unsigned int getVersionValue() const { return m_Version; }
  std::optional<std::uint32_t> version() const { return m_Version.Stated<std::uint32_t>(); }
  /// 1 or 0 (any other number, and at first): whether the document has all resources, not only
  /// those that changed. Always written.
  int setFullStateValue(int full) { return m_FullState.Set(full == 1 ? 1 : 0); }
  int getFullStateValue() const { return m_FullState; }
  std::optional<bool> fullState() const { return m_FullState.Stated<bool>(); }
  /// A list of zt_name (taken).
  int setNameListValue(ZtSingleElementList* list) { return m_Names.Set(list); }
  ZtListOf<zt_name>* getNameListValue() const { return m_Names; }
  /// Takes `name`; returns 0 when it is null, has an owner, or there is no memory.
  int addName(zt_name* name) { return m_Names.Add(name); }
  /// A list of zt_resource (taken).
  int setResourceListValue(ZtSingleElementList* list) { return m_Resources.Set(list); }
  ZtListOf<zt_resource>* getResourceListValue() const { return m_Resources; }
  /// Takes `resource`; returns 0 when it is null, has an owner, or there is no memory.
  int addResource(zt_resource* resource) { return m_Resources.Add(resource); }

 private:
  ZtText m_Uri;
  ZtNumber m_Version;
  ZtNumber m_FullState;
  ZtChildListOf<zt_name> m_Names;
  ZtChildListOf<zt_resource> m_Resources;
};

/// The context of resource list meta-information, XML_SCHEMA_LIST.
class ListContext : public ZtDescribedBy<ListContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class ListDataBinder : public ZtDescribedBy<ListContext, ZtFactory> {
 public:
  zt_resource* CreateResourceElement() { return Make(); }
  zt_instance* CreateInstanceElement() { return Make(); }
  zt_name* CreateNameElement() { return Make(); }
};

/// Writes a zt_list. Its Add functions write one element each and return 1, or 0 on failure; they
/// work only while Marshall runs.
class ListMarshaller : public ZtDescribedBy<ListContext, ZtMarshaller> {
 public:
  int AddListElementToXml(zt_list* list) { return Write(list); }
  int AddResourceElementToXml(zt_resource* resource) { return Write(resource); }
  int AddInstanceElementToXml(zt_instance* instance) { return Write(instance); }
  int AddNameElementToXml(zt_name* name) { return Write(name); }
};

/// Reads a "list" document, with any prefixes.
class XMLListDecoder : public ZtDecoderOf<ListContext> {};
/// Reads a zt_list.
class ListUnMarshaller : public ZtDescribedBy<ListContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLRLMI_H
