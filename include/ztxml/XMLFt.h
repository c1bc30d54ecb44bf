// A file to be fetched over HTTP (the file-transfer description of the GSMA RCS services).
//
// Elements own their texts, children and lists: setters copy texts, take objects and lists with
// their entries, and free what they replace; null means absent. The add operations take one object
// and return 1, or 0 when it is null, has an owner, or there is no memory. Texts are raw: callers
// escape them.
#ifndef ZTXML_INCLUDE_XMLFT_H
#define ZTXML_INCLUDE_XMLFT_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtSchemaDecoder.h"

/// A "data": where the file is.
class zt_ns_ft_data : public ZtTyped<zt_ns_ft_data> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "etag", the version of the file at that URL.
  int setEtagValue(const char* text) { return m_Etag.Assign(text); }
  const char* getEtagValue() const { return m_Etag.Get(); }
  /// The attribute "until", the date and time up to which the file can be fetched.
  int setUntilValue(const char* text) { return m_Until.Assign(text); }
  const char* getUntilValue() const { return m_Until.Get(); }
  /// The attribute "url".
  int setUrlValue(const char* text) { return m_Url.Assign(text); }
  const char* getUrlValue() const { return m_Url.Get(); }

 private:
  ZtText m_Etag;
  ZtText m_Until;
  ZtText m_Url;
};

/// A "file-info": the file or its thumbnail.
class zt_ns_ft_file_info : public ZtTyped<zt_ns_ft_file_info> {
 public:
  ZT_API static const ZtElementType kType;
  /// The attribute "type", e.g. "file".
  int setTypeValue(const char* text) { return m_Type.Assign(text); }
  const char* getTypeValue() const { return m_Type.Get(); }
  /// The size in bytes; 0 when absent.
  int setFileSizeValue(unsigned int value) { return m_FileSize.Set(value); }
  unsigned int getFileSizeValue() const { return m_FileSize; }
  std::optional<std::uint32_t> fileSize() const { return m_FileSize.Stated<std::uint32_t>(); }
  /// Where the file is.
  int setDataValue(zt_ns_ft_data* element) { return m_Data.Set(element); }
  zt_ns_ft_data* getDataValue() const { return m_Data; }

 private:
  ZtText m_Type;
  ZtNumber m_FileSize;
  ZtChildOf<zt_ns_ft_data> m_Data;
};

/// The root element "file".
class zt_file : public ZtTyped<zt_file, ZtObject> {
 public:
  ZT_API static const ZtElementType kType;
  /// A list of zt_ns_ft_file_info.
  int setFileInfoListValue(ZtSingleElementList* list) { return m_FileInfos.Set(list); }
  ZtListOf<zt_ns_ft_file_info>* getFileInfoListValue() const { return m_FileInfos; }
  int addFileInfo(zt_ns_ft_file_info* element) { return m_FileInfos.Add(element); }

 private:
  ZtChildListOf<zt_ns_ft_file_info> m_FileInfos;
};

/// The context of this document, XML_SCHEMA_FILE.
class FileContext : public ZtDescribedBy<FileContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Makes empty elements; each is the caller's until a parent takes it. Null when out of memory.
class FileDataBinder : public ZtDescribedBy<FileContext, ZtFactory> {
 public:
  zt_ns_ft_file_info* CreateFileInfoElement() { return Make(); }
  zt_ns_ft_data* CreateDataElement() { return Make(); }
};

/// Writes a zt_file. Its Add functions write one element each and return 1, or 0 on failure; they
/// work only while Marshall runs.
class FileMarshaller : public ZtDescribedBy<FileContext, ZtMarshaller> {
 public:
  int AddFileElementToXml(zt_file* file) { return Write(file); }
  int AddFileInfoElementToXml(zt_ns_ft_file_info* info) { return Write(info); }
  int AddDataElementToXml(zt_ns_ft_data* data) { return Write(data); }
};

/// Reads a "file" document, with any prefixes.
class XMLFileDecoder : public ZtDecoderOf<FileContext> {};
/// Reads a zt_file.
class FileUnMarshaller : public ZtDescribedBy<FileContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLFT_H
