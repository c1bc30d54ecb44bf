// The document writer: appends XML text to one fixed buffer.
#ifndef ZTXML_INCLUDE_ZTXMLDOCGENERATOR_H
#define ZTXML_INCLUDE_ZTXMLDOCGENERATOR_H

#include <cstddef>
#include <initializer_list>

#include "ztxml/ZtExport.h"
#include "ztxml/ZtPiece.h"

/// Writes what it is told, in order; it knows no schema and no open elements. The text is exact to
/// the byte: start tags begin on a new line, end tags follow the content, an element name before
/// attributes is followed by two blanks. No operation reports failure: null names make it do
/// nothing, and a document is cut at 32767 characters (with one log line).
///
/// Only the double quote in attribute values is escaped; everything else, and all element text, is
/// written as it stands: escaping is the caller's.
class ZT_API ZtXMLDocGenerator : public ZtNonCopyable {
 public:
  static constexpr std::size_t kBufferSize = 32768;  ///< bytes, with the terminating NUL

  ZtXMLDocGenerator();
  ~ZtXMLDocGenerator();

  /// Starts an empty document. Does nothing while one is begun (its text is kept).
  void ztInitXmlDoc();
  /// Drops the document.
  void ztDeInitXmlDoc();
  /// The text so far (borrowed, to be read only), null between documents or when there was no
  /// memory for it.
  char* ztGetXmlDoc();

  /// Begins an empty document with an XML declaration; null means "1.0" and "ISO-8859-15".
  void ztAddHeader(const char* version, const char* encoding);
  /// Empties the document and forgets header, open tag and prefix.
  void ztResetHeader();
  /// A comment on a line of its own; `text` must not hold "--".
  void ztAddComment(const char* text);
  /// The prefix of every later unqualified start and end tag (copied); null for none.
  void ztSetXmlNamespace(const char* prefix);

  /// Opens an element; `leaveOpen` 1 leaves the start tag open for attributes.
  void ztStartElement(const char* name, int leaveOpen);
  /// Opens an element without a line break before it.
  void ztStartElementWithoutNL(const char* name, int leaveOpen);
  /// Closes a start tag left open, then opens prefix:name and declares the prefix; a null prefix or
  /// uri opens it as ztStartElement does.
  void ztStartElementNs(const char* name, const char* prefix, const char* uri, int leaveOpen);
  /// An empty element without attributes.
  void ztStartElementSelfEnding(const char* name);

  /// An attribute of the start tag left open (nothing otherwise). `useNs` 1 writes the current
  /// prefix; `selfEnd` 1 ends the tag with "/>", else `close` 1 with ">".
  void ztStartAttribute(const char* name, const char* value, int useNs, int selfEnd, int close);
  /// An attribute with `prefix`, or without any when it is null, as ztStartAttribute writes it.
  void ztStartAttributeNs(const char* name, const char* value, const char* prefix, int selfEnd,
                          int close);
  /// A namespace declaration (name "xmlns", suffix the prefix) or an attribute (suffix null); it is
  /// written whether or not a start tag is open.
  void ztAddNameSpacePrefixToXml(const char* name, const char* value, const char* suffix,
                                 int selfEnd, int close);

  /// Closes a start tag left open and writes `text` as it stands; null writes one blank.
  void ztXmlSetData(const char* text);
  /// An end tag, directly after what was written last.
  void ztEndXmlElement(const char* name);
  /// An end tag on a line of its own, with `prefix` or else the current one.
  void ztEndXmlElementNs(const char* name, const char* prefix);

  /// A copy of `text` with double quotes as "&quot;", or null when there is no memory. The caller
  /// frees it with FreeElement.
  static char* escapeString(const char* text);

  /// Whether an allocation failed since ztInitXmlDoc, so that the text lacks something.
  bool outOfMemory() const { return m_bOutOfMemory; }

 private:
  friend class ZtPen;

  ZtPiece Prefix() const { return {nsPrefix, m_iPrefixSize}; }
  ZT_LOCAL void UsePrefix(ZtPiece prefix);
  ZT_LOCAL void Start(const char* lead, const char* name, int leaveOpen);
  ZT_LOCAL void Attribute(ZtPiece lead, ZtPiece prefix, bool colon, const char* name,
                          const char* value, int selfEnd, int close, ZtPiece blank);
  ZT_LOCAL void Append(std::initializer_list<ZtPiece> pieces);
  // The value with its double quotes escaped, to be freed; null without memory, which is noted.
  ZT_LOCAL char* Escaped(ZtPiece value);
  // Appends as much as there is room for.
  ZT_LOCAL void Cut(ZtPiece piece);

  int initialised = 0;
  int headerAdded = 0;
  int headerAllowed = 0;
  int tagOpen = 0;
  char* buffer = nullptr;    // owned
  char* nsPrefix = nullptr;  // owned, unless it is borrowed

  char* m_pAt = nullptr;          // the end of the text, so that an append costs its own size only
  char* m_pEnd = nullptr;         // of the buffer, less one for the NUL; null without it
  std::size_t m_iPrefixSize = 0;  // of nsPrefix
  bool m_bPrefixBorrowed = false;
  bool m_bCutReported = false;
  bool m_bOutOfMemory = false;
};

#endif  // ZTXML_INCLUDE_ZTXMLDOCGENERATOR_H
