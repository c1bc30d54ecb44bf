// A document file, read or written whole through the device platform layer.
#ifndef ZTXML_INCLUDE_XMLFILE_H
#define ZTXML_INCLUDE_XMLFILE_H

#include "ztxml/ZtExport.h"
#include "ztxml/ztPlatform.h"

/// How an XMLFile is opened.
enum eXMLFileAccessMode : int {
  XML_FILE_READ = 0,
  XML_FILE_WRITE = 1,      ///< creates and truncates
  XML_FILE_READ_WRITE = 2  ///< creates and keeps
};

/// One file by its name. Open it, read or write it whole, then close it.
class ZT_API XMLFile : public ZtNonCopyable {
 public:
  /// Copies `fileName` (null: every open fails). Opens nothing.
  XMLFile(const char* fileName, eXMLFileAccessMode mode);
  /// Frees name and content. It does not close the file: call CloseFile first.
  ~XMLFile();
  /// Opens the file by its mode; an unknown mode opens nothing. Returns 1, or 0 with a log line.
  int OpenFile();
  /// Opens and reads the file. The content, followed by a NUL, belongs to this object until the
  /// next Read, CloseFile or destruction. Null with a log line when the file cannot be opened, is
  /// empty, not a regular file or larger than 2 GiB. The file stays open after a success.
  char* Read();
  /// The bytes of the content that the last Read gave, without the NUL.
  std::size_t Size() const { return m_iSize; }
  /// Opens the file and writes `text`. Returns 1, or 0. The file stays open.
  int Write(const char* text);
  /// Closes the file and frees the content. Always 1.
  int CloseFile();

 private:
  ZT_LOCAL bool ReadAll(unsigned size);

  char* m_pFileName;  // owned
  char* m_pFileData;  // owned
  eXMLFileAccessMode m_eAccessMode;
  ztDplIODevice m_Device;
  std::size_t m_iSize = 0;
};

#endif  // ZTXML_INCLUDE_XMLFILE_H
