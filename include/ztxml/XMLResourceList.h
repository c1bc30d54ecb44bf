// Resource lists (RFC 4826): lists of URIs, nested in each other.
#ifndef ZTXML_INCLUDE_XMLRESOURCELIST_H
#define ZTXML_INCLUDE_XMLRESOURCELIST_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

struct ResourceListsBinding;

/// The element "display-name": what to show for the element that it stands in.
class zt_display_nameType : public ZtTyped<zt_display_nameType, ZtExtensible<>> {
 public:
  ZT_API static const ZtElementType kType;
  /// The element's text (copied). Raw text, to be escaped by the caller.
  int setValueValue(const char* value) { return m_Value.Assign(value); }
  const char* getValueValue() const { return m_Value.Get(); }

 private:
  ZtText m_Value;
};

/// The base of elements with a "display-name". Here and below texts are copied; null means absent.
class ZtDisplayNamed : public ZtExtensible<> {
 public:
  ZT_INLINE ~ZtDisplayNamed() override = default;

  /// Takes the name; null for none.
  int setDisplayNameValue(zt_display_nameType* name) { return m_DisplayName.Set(name); }
  zt_display_nameType* getDisplayNameValue() const { return m_DisplayName; }

 private:
  friend struct ResourceListsBinding;

  ZtChildOf<zt_display_nameType> m_DisplayName;
};

/// The element "entry": one resource.
class zt_entryType : public ZtTyped<zt_entryType, ZtDisplayNamed> {
 public:
  ZT_API static const ZtElementType kType;
  /// The resource's URI; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }

 private:
  ZtText m_Uri;
};

/// The element "entry-ref": an entry of any document at the server of this one.
class zt_entry_refType : public ZtTyped<zt_entry_refType, ZtDisplayNamed> {
 public:
  ZT_API static const ZtElementType kType;
  /// The entry's relative URI; the element cannot be written without it.
  int setRefValue(const char* ref) { return m_Ref.Assign(ref); }
  const char* getRefValue() const { return m_Ref.Get(); }

 private:
  ZtText m_Ref;
};

/// The element "external": a list of another document.
class zt_externalType : public ZtTyped<zt_externalType, ZtDisplayNamed> {
 public:
  ZT_API static const ZtElementType kType;
  /// The list's absolute URI.
  int setAnchorValue(const char* anchor) { return m_Anchor.Assign(anchor); }
  const char* getAnchorValue() const { return m_Anchor.Get(); }

 private:
  ZtText m_Anchor;
};

/// The element "list". Its members are those kept elements (see ZtKeepsElements) that an add
/// function below takes, in document order; no others are written. ZtAs tells their types.
class zt_listType : public ZtTyped<zt_listType, ZtDisplayNamed> {
 public:
  ZT_API static const ZtElementType kType;
  /// A name that no sibling list has.
  int setNameValue(const char* name) { return m_Name.Assign(name); }
  const char* getNameValue() const { return m_Name.Get(); }
  /// Each takes a member and appends it; returns 0 when it is null, has an owner, or there is no
  /// memory.
  int addList(zt_listType* list) { return addAnyElement(list); }
  int addEntry(zt_entryType* entry) { return addAnyElement(entry); }
  int addEntryRef(zt_entry_refType* entry) { return addAnyElement(entry); }
  int addExternal(zt_externalType* external) { return addAnyElement(external); }

 private:
  ZtText m_Name;
};

/// The root element "resource-lists".
class zt_resource_lists : public ZtTyped<zt_resource_lists, ZtExtensible<ZtObject>> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_listType (taken).
  int setListListValue(ZtSingleElementList* list) { return m_Lists.Set(list); }
  ZtListOf<zt_listType>* getListListValue() const { return m_Lists; }
  /// Takes `list`; returns 0 when it is null, has an owner, or there is no memory.
  int addList(zt_listType* list) { return m_Lists.Add(list); }

 private:
  ZtChildListOf<zt_listType> m_Lists;
};

/// The context of resource lists, XML_SCHEMA_RESOURCE_LISTS.
class ResourceListsContext : public ZtDescribedBy<ResourceListsContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class ResourceListsDataBinder : public ZtDescribedBy<ResourceListsContext, ZtFactory> {
 public:
  zt_listType* CreateListType() { return Make(); }
  zt_entryType* CreateEntryType() { return Make(); }
  zt_entry_refType* CreateEntryRefType() { return Make(); }
  zt_externalType* CreateExternalType() { return Make(); }
  zt_display_nameType* CreateDisplayNameType() { return Make(); }
};

/// Writes a zt_resource_lists. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class Resource_listsMarshall : public ZtDescribedBy<ResourceListsContext, ZtMarshaller> {
 public:
  int AddResource_listsElementToXml(zt_resource_lists* lists) { return Write(lists); }
  int AddListElementToXml(zt_listType* list) { return Write(list); }
  int AddEntryElementToXml(zt_entryType* entry) { return Write(entry); }
  int AddEntryRefElementToXml(zt_entry_refType* entry) { return Write(entry); }
  int AddExternalElementToXml(zt_externalType* external) { return Write(external); }
};

/// Reads a "resource-lists" document, with any prefixes.
class XMLResourceListsDecoder : public ZtDecoderOf<ResourceListsContext> {};
/// Reads a zt_resource_lists.
class ResourceListsUnMarshaller : public ZtDescribedBy<ResourceListsContext, ZtUnMarshaller> {};
/// A self-check for developers: writes a small document, which the log shows, and frees it.
ZT_API void TestResource_listsMarshall();

#endif  // ZTXML_INCLUDE_XMLRESOURCELIST_H
