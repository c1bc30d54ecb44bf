// The incremental parser: XML text in chunks goes in, callbacks come out; no tree is built.
//
// Supported: start, end and empty-element tags, attributes in double or single quotes with the
// five predefined entities, comments, processing instructions before the root. Element text is
// delivered raw: entities in it are not decoded. There is no CDATA, no DOCTYPE, no character
// reference, no namespace processing; a NUL byte ends the input.
#ifndef ZTXML_INCLUDE_XMLDECODER_H
#define ZTXML_INCLUDE_XMLDECODER_H

#include <cstddef>

#include "ztxml/XmlCommon.h"
#include "ztxml/ZtExport.h"
#include "ztxml/ZtPiece.h"

/// Results of XmlDecoder::Decode.
enum : int {
  ZT_XML_SUCCESS = 0,     ///< the document is complete
  ZT_XML_INCOMPLETE = 1,  ///< more text is needed
  ZT_XML_ERROR = -1       ///< failure
};

/// States of an XmlDecoder.
enum eXmlDecodeState : int {
  ZT_XML_PARSE_BEGIN = 0,     ///< nothing parsed
  ZT_XML_PARSE_CONTINUE = 1,  ///< the last call ran out of input inside the document
  ZT_XML_PARSE_ERROR = 2,     ///< a fatal error; every later call fails
  ZT_XML_PARSE_COMPLETE = 3   ///< the root element has been closed
};

struct ScannedTag;
class ZtSink;

/// Receiver of the parser's callbacks. All strings are borrowed for the duration of the call.
class ZT_API XmlDecoderSchema : public ZtNonCopyable {
 public:
  virtual ~XmlDecoderSchema() = default;
  /// Reserved; every implementation returns 0.
  virtual int ProcessReserved() = 0;
  /// One attribute of the start tag of `element`, after the start was reported.
  virtual int ProcessAttribute(char* element, char* name, char* value) = 0;
  /// A start tag (`name`, `value` null) or an end tag ("/" + name, `value` the raw text since the
  /// last tag or comment).
  virtual int ProcessElement(char* name, char* value) = 0;
  /// The start tag of `name` and its attributes have been reported.
  virtual int ProcessElementOpened(char* name) = 0;
  /// What the receiver has built, for whoever drives the parse; in the binding layer always a
  /// converted XMLObject*.
  virtual void* GetSessionData() = 0;
  /// The object itself.
  virtual XmlDecoderSchema* Identity() { return this; }
};

/// The parser. One object reads one document on one thread.
class ZT_API XmlDecoder : public ZtNonCopyable {
 public:
  XmlDecoder();
  ~XmlDecoder();

  /// Makes the sentinel of the element stack if there is none, drops pending text and sets the
  /// state to begin.
  void InitXmlDecoder();

  /// Sets the receiver of the callbacks (borrowed; null: the text is only checked).
  void SetSchema(XmlDecoderSchema* schema) { m_pSchema = schema; }

  /// Feeds `n_count` bytes at `n_strXML` (borrowed, unchanged; a NUL among them ends the chunk).
  /// Returns ZT_XML_SUCCESS, ZT_XML_INCOMPLETE or ZT_XML_ERROR. A tag cut by the end of a chunk is
  /// completed by the next one; text cut so is lost.
  int Decode(char* n_strXML, int n_count);

  /// Reads a whole document of `size` bytes, with a NUL after them and none among them, and tells
  /// `sink` of it. The text is padded (kZtPadding); it is cut in place, and stays as it was told.
  /// Results as of Decode.
  int DecodeWhole(char* text, std::size_t size, ZtSink& sink);

  /// Frees the pending text and the stack with its sentinel. The state stays; a decoder that was
  /// in the middle of a document cannot go on with it.
  void ResetXmlDecoder();
  /// Whether it holds no more than it needs for most documents.
  ZT_LOCAL bool IsLean() const;

  /// How far the document is read.
  eXmlDecodeState State() const { return m_DecodeState; }
  /// After a failure of DecodeWhole: the offset of the tag that cannot be read, or where the text
  /// ends too early.
  std::size_t FailedAt() const { return m_iFailed; }

  /// Pushes a copy of `name` on the stack of open elements; null when out of memory or reset.
  [[gnu::cold]] BuddyLinkList* PushElement(char* name);
  /// Takes the innermost open element off the stack: the node that PushElement made, or for an
  /// element that the parser has opened one with a copy of its name. Null when there is none, or no
  /// memory for a copy. The node and its data are the caller's (FreeElement,
  /// BuddyLinkList::Release).
  [[gnu::cold]] BuddyLinkList* PopElement();

  /// Whether the text after an element's name is a well-formed attribute list: 0, else -1.
  static int ValidateAttributeList(const char* list);
  /// Skips leading and cuts trailing white space; returns the first kept character.
  static char* TrimSpaces(char* text);
  /// Re-entrant tokenizer: cuts the next token out of `str`, leaves the rest in `*next`. At most
  /// the first 32 characters of `delims` count. Null when there is no token.
  static char* N_strtok(char* str, const char* delims, char** next);
  /// Replaces every `entity` in `text` by `ch`, in place.
  static void UnescapeXmlString(char* text, const char* entity, char ch);
  /// Undoes the five predefined entities once, in place.
  static void UnescapeXml(char* text);

 private:
  struct OpenElement;
  struct OpenElements;
  class Callbacks;

  ZT_COLD int DecodeAttributes(char* n_strAttrList);
  ZT_COLD int ReportAttributes(ScannedTag& tag, char* rest, bool started);
  ZT_LOCAL int AppendText(const char* text, int count);
  ZT_LOCAL int Continue();
  ZT_COLD int OutOfTags(char* position);
  ZT_COLD int EndTag(char* text, char* tag, const char* close);
  inline char* PlainEnd(char* tag, const char* end) const;
  inline bool ReportTag(ScannedTag& tag);
  ZT_COLD int AnyTag(char* text, char* tag, char* close, bool& counts);
  inline bool Opened(const char* element, std::size_t size);
  ZT_LOCAL void EndEmpty(char* element, std::size_t size, ZtPiece text);
  inline void ReportEnd(char* text, char* tag);
  ZT_LOCAL void DropPending();
  ZT_COLD OpenElement* Reserve(std::size_t size);
  inline bool Push(const char* name, std::size_t size, const char* end);
  inline void Link(OpenElement* node);
  inline OpenElement* Unlink();
  inline void Pop();
  ZT_COLD int ParseError();
  ZT_COLD void ForgetConsumed(const char* text, const char* tag, const char* close);

  eXmlDecodeState m_DecodeState;
  BuddyLinkList* m_pElementStack = nullptr;  // sentinel
  char* m_pPendingText = nullptr;            // owned, unless m_bBorrowed
  XmlDecoderSchema* m_pSchema = nullptr;     // borrowed
  int m_bEmptyElement = 0;

  ZtSink* m_pSink = nullptr;  // told of the tags during a call

  // Accelerators: they keep every push, pop, chunk and append at constant cost.
  OpenElement* m_pTop = nullptr;     // the innermost open element, null when there is none
  OpenElement* m_pSpare = nullptr;   // nodes to be used again
  OpenElements* m_pNodes = nullptr;  // all of them, but the sentinel
  bool m_bBorrowed = false;          // the pending text is a whole document's
  std::size_t m_iLength = 0;         // bytes of pending text
  std::size_t m_iCapacity = 0;       // bytes allocated for it
  std::size_t m_iTag = 0;            // where a partial tag begins in it, or m_iLength
  std::size_t m_iScanned = 0;        // up to where it is known to hold no '>'
  std::size_t m_iFailed = 0;         // where the tag begins that ended the call
};

#endif  // ZTXML_INCLUDE_XMLDECODER_H
