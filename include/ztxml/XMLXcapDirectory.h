// XCAP directories (OMA XML Document Management): which documents a user has, by application usage.
#ifndef ZTXML_INCLUDE_XMLXCAPDIRECTORY_H
#define ZTXML_INCLUDE_XMLXCAPDIRECTORY_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

/// The element "entry": one document. Texts are copied; null means absent, here and below.
class zt_entry : public ZtTyped<zt_entry> {
 public:
  ZT_API static const ZtElementType kType;
  /// The document's URI; the element cannot be written without it.
  int setUriValue(const char* uri) { return m_Uri.Assign(uri); }
  const char* getUriValue() const { return m_Uri.Get(); }
  /// The document's entity tag; the element cannot be written without it.
  int setEtagValue(const char* etag) { return m_Etag.Assign(etag); }
  const char* getEtagValue() const { return m_Etag.Get(); }
  /// When the document last changed.
  int setLastModifiedValue(const char* time) { return m_LastModified.Assign(time); }
  const char* getLastModifiedValue() const { return m_LastModified.Get(); }
  /// The document's size in bytes; 0 means absent.
  int setSizeValue(unsigned int bytes) { return m_Size.Set(bytes); }
  unsigned int getSizeValue() const { return m_Size; }
  std::optional<std::uint32_t> size() const { return m_Size.Stated<std::uint32_t>(); }
  /// Further attributes: a list of zt_AttributeValuePair, stored as XMLAttribute* (taken). Of
  /// several with one name only the first is written, and none that is named as one above.
  int setAnyAttributeValue(ZtSingleElementList* list) { return m_AnyAttributes.Set(list); }
  ZtListOf<zt_AttributeValuePair>* getAnyAttributeValue() const { return m_AnyAttributes; }
  /// Takes `attribute`; returns 0 when it is null, has an owner, or there is no memory.
  int addAnyAttribute(XMLAttribute* attribute) { return m_AnyAttributes.Add(attribute); }

 private:
  ZtText m_Uri;
  ZtText m_Etag;
  ZtText m_LastModified;
  ZtNumber m_Size;
  ZtAttributeList m_AnyAttributes;
};

/// The element "folder": the documents of one application usage, or why they are not listed.
class zt_folder : public ZtTyped<zt_folder> {
 public:
  ZT_API static const ZtElementType kType;
  /// The application usage's id, e.g. "resource-lists"; the element cannot be written without it.
  int setAuidValue(const char* auid) { return m_Auid.Assign(auid); }
  const char* getAuidValue() const { return m_Auid.Get(); }
  /// A list of zt_entry (taken).
  int setEntryListValue(ZtSingleElementList* list) { return m_Entries.Set(list); }
  ZtListOf<zt_entry>* getEntryListValue() const { return m_Entries; }
  /// Takes `entry`; returns 0 when it is null, has an owner, or there is no memory.
  int addEntry(zt_entry* entry) { return m_Entries.Add(entry); }
  /// Why there are no entries; only written then. Raw text, to be escaped by the caller.
  int setErrorCodeValue(const char* code) { return m_ErrorCode.Assign(code); }
  const char* getErrorCodeValue() const { return m_ErrorCode.Get(); }

 private:
  ZtText m_Auid;
  ZtChildListOf<zt_entry> m_Entries;
  ZtText m_ErrorCode;
};

/// The root element "xcap-directory".
class zt_xcap_directory : public ZtTyped<zt_xcap_directory, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_folder (taken).
  int setFolderListValue(ZtSingleElementList* list) { return m_Folders.Set(list); }
  ZtListOf<zt_folder>* getFolderListValue() const { return m_Folders; }
  /// Takes `folder`; returns 0 when it is null, has an owner, or there is no memory.
  int addFolder(zt_folder* folder) { return m_Folders.Add(folder); }

 private:
  ZtChildListOf<zt_folder> m_Folders;
};

/// The context of XCAP directories, XML_SCHEMA_XCAP_DIRECTORY.
class XcapDirectoryContext : public ZtDescribedBy<XcapDirectoryContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty objects; each is the caller's until a parent takes it. Null when out of memory.
class XcapDirectoryDataBinder : public ZtDescribedBy<XcapDirectoryContext, ZtFactory> {
 public:
  zt_folder* CreateFolderElement() { return Make(); }
  zt_entry* CreateEntryElement() { return Make(); }
};

/// Writes a zt_xcap_directory. Its Add functions write one element each and return 1, or 0 on
/// failure; they work only while Marshall runs.
class XcapDirectoryMarshaller : public ZtDescribedBy<XcapDirectoryContext, ZtMarshaller> {
 public:
  int AddXcapDirectoryElementToXml(zt_xcap_directory* directory) { return Write(directory); }
  int AddFolderElementToXml(zt_folder* folder) { return Write(folder); }
  int AddEntryElementToXml(zt_entry* entry) { return Write(entry); }
};

/// Reads an "xcap-directory" document. Names are taken without their prefixes.
class XMLXcapDirectoryDecoder : public ZtDecoderOf<XcapDirectoryContext> {};
/// Reads a zt_xcap_directory. Elements are known by their local names, whatever their prefixes.
class XcapDirectoryUnMarshaller : public ZtDescribedBy<XcapDirectoryContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLXCAPDIRECTORY_H
