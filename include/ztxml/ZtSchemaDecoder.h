// The schema decoder: turns the parser's callbacks into the tree of a document's objects. What one
// document adds is how it is to be read: its roots, and what is done with prefixes.
#ifndef ZTXML_INCLUDE_ZTSCHEMADECODER_H
#define ZTXML_INCLUDE_ZTSCHEMADECODER_H

#include "ztxml/XMLStack.h"
#include "ztxml/XmlDecoder.h"
#include "ztxml/ZtArena.h"
#include "ztxml/ZtHolders.h"
#include "ztxml/ZtSink.h"

/// How the library reads a document and an element type; opaque to callers.
struct ZtElementType;
struct ZtDocument;
struct ZtChildName;
struct ZtField;
struct ZtSource;
class ZtNameId;
enum class ZtOutcome : unsigned char;

/// Reads one document. While it is read, what the decoder makes belongs to it until a parent adopts
/// it; the root belongs to whoever takes it through GetSessionData.
class ZT_API ZtSchemaDecoder : public XmlDecoderSchema, public ZtSink {
 public:
  ~ZtSchemaDecoder() override;

  int ProcessReserved() override;
  [[gnu::cold]] int ProcessAttribute(char* element, char* name, char* value) override;
  int ProcessElement(char* name, char* value) override;
  int ProcessElementOpened(char* name) override;
  /// The root (an XMLObject*), null until its start tag. The decoder never deletes it.
  void* GetSessionData() override;

  /// What a parser that knows the decoder as its sink tells; the callbacks above are for others.
  void Start(ScannedTag& tag) override;
  void Attributes(ScannedTag& tag) override;
  void Opened(char* name) override;
  void Tag(ScannedTag& tag) override;
  int End(ZtPiece slashName, ZtPiece text) override;

  /// Before anything is read: what is made lies in `arena` (borrowed), with the texts of the
  /// document that it keeps left in place; on the heap without one.
  void Use(ZtArena& arena) {
    if (!m_pRoot) m_pArena = &arena;
  }

  /// After a whole document: hands over its root and makes the decoder ready for another one. Null,
  /// without doing so, when the document was not whole or the decoder holds more than most need.
  ZT_LOCAL XMLObject* Finish();

  /// Tells the namespaces that the document declares, a zt_schema_namespace_retrieval. 0 when the
  /// decoder has no use for them, else 1.
  virtual int SetNameSpaceBinderInfo(XMLObject* binder);

  /// Handles a known extension element (`name` without prefix): its start makes, opens and returns
  /// a new object, which is the caller's until a parent adopts it; its end closes it. Null for
  /// ends and other names.
  [[gnu::cold]] XMLElement* ProcessAnyElement(char* name, char* value);

  /// Sets PassName() to `name` without its first prefix ("/ns:a" becomes "/a"). Returns 1, or 0
  /// without memory: PassName() is null then.
  int XMLRemoveNameSpaceTag(char* name);

  /// The name of the element in the last callback as it was normalised (borrowed). Null before, and
  /// in decoders that compare names as they stand in the document.
  const char* PassName() const { return m_PassName; }

  /// Whether the tree is not to be used: something was lost for want of memory, or a start tag's
  /// name began with a slash.
  bool Failed() const { return m_bFailed; }
  /// The name that was refused for that, as the parser handed it out; null for none.
  const char* RefusedName() const { return m_pRefused; }

  /// How many types the objects of one document may have.
  static constexpr std::size_t kMostTypes = 40;

 protected:
  explicit ZtSchemaDecoder(const ZtDocument& document);

  /// The name that rows know for `name`, of `size` bytes; null without memory. Sets
  /// PassName().
  virtual const char* LocalName(char* name, std::size_t& size);

  /// The part of a start tag's name that rows know; `colon` is the first of the name, or
  /// null. Null when only LocalName can tell.
  virtual const char* LocalPart(const char* name, const char* colon) const;

  /// Whether the start tag `name` is refused, with the document and a line in the log: what follows
  /// its prefix begins with a slash, so that it would pass for the end of an element.
  bool RefusesStart(const char* name);

  /// Room for a pass name of `size` bytes and its NUL; null without memory, with the given line.
  char* ReservePassName(std::size_t size, const char* noMemory);

  XMLObject* m_pRoot = nullptr;
  char* m_PassName = nullptr;  // owned
  XmlCodeGenStack m_Stack;
  const ZtDocument& m_Document;
  bool m_bFailed = false;
  const char* m_pRefused = nullptr;

 private:
  struct Open {  // an object and its type, null when there is none
    XMLElement* object = nullptr;
    const ZtElementType* type = nullptr;
  };

  // What an element with an object is.
  enum class Kind : unsigned char { kObject, kRoot, kExtension };

  struct Element {  // what a name is: null types have no object of their own
    const ZtElementType* type = nullptr;
    const ZtField* row = nullptr;  // of the parent, when it has one
    Kind kind = {};
  };

  struct Frame {  // of an object on the stack
    const ZtElementType* type;
    const ZtField* next;  // where the search for the row of its next child begins
    int name;             // of its element
    Kind kind;
  };

  // What Tag and Start do; inlined, it would be there once more for callers through a ZtSink.
  [[gnu::noinline]] ZT_LOCAL void WholeTag(ScannedTag& tag);
  [[gnu::noinline]] ZT_LOCAL void StartTag(ScannedTag& tag);
  inline bool EndOpened(ZtPiece slashName, ZtPiece text);

  ZT_LOCAL ZtSource SourceOf(const ZtElementType& type);
  ZT_LOCAL void Attribute(const ZtElementType& type, ZtPiece name, ZtPiece value);
  inline void KeepAttribute(const ZtElementType& type, const ZtField* field, ZtPiece name,
                            ZtPiece value);
  ZT_COLD ZtOutcome OfferAttribute(const ZtElementType& type, ZtPiece name, ZtPiece value);
  inline XMLElement* Make(const ZtElementType& type);
  ZT_COLD XMLElement* MakeFlag(ZtPiece name);
  ZT_LOCAL void KeepAttributes(ScannedTag& tag);
  inline bool StartKnown(ScannedTag& tag);
  inline bool KeepInPlace(const ZtField& row, ZtPiece text);
  inline void KeepText(const ZtField& row, ZtPiece text);
  ZT_LOCAL bool StartElement(const Open& current, const ZtChildName& name);
  ZT_COLD void StartRoot(const Element& element, ZtNameId name);
  inline bool StartChild(const Open& current, const Element& element, const ZtChildName& name);
  ZT_COLD XMLElement* StartExtension(const Element& element, ZtNameId name);
  ZT_COLD void EndElement(const Open& current, const ZtChildName& name, ZtPiece value,
                          bool skipped);
  ZT_COLD void OfferEnd(const Open& current, const ZtField* row, const ZtChildName& name,
                        ZtPiece value);
  inline ZtOutcome Offer(const Open& parent, const ZtChildName& name, ZtPiece value,
                         XMLElement* child, const ZtField* row = nullptr);
  ZT_COLD int ElementCallback(char* name, ZtPiece value);
  ZT_LOCAL bool IsNamed(const char* element) const;
  ZT_COLD void RefuseSlash(const char* name);
  ZT_COLD void NoteEmptyStack(int callbacks) const;
  ZT_LOCAL Open Current() const;
  ZT_LOCAL Element Find(ZtNameId name, const ZtElementType* current);
  ZT_COLD const ZtElementType* FindAnywhere(ZtNameId name, bool atEnd);
  Frame& Top() const { return m_pFrames[m_Stack.size()]; }
  ZT_COLD bool ReserveFrames();
  ZT_COLD void AddType(const ZtElementType* type);
  ZT_LOCAL bool Closes(const Open& current, ZtNameId name) const;
  ZT_LOCAL const ZtElementType* CurrentType() const;
  inline void Push(XMLElement* object, const Element& element, ZtNameId name);
  ZT_LOCAL void Pop();

  std::size_t m_iPassCapacity = 0;  // bytes allocated for m_PassName
  static constexpr int kFewFrames = 8;
  Frame m_FewFrames[kFewFrames];
  // As many as the stack has entries: on the heap once there are more than a few.
  Frame* m_pFrames = m_FewFrames;
  Open m_Started;               // made by the last start tag: its attributes go there
  std::size_t m_iDropped = 0;   // open elements that a full stack did not take
  std::size_t m_iSkipped = 0;   // depth inside an element whose content is skipped, 0 outside
  bool m_bOfferEnd = false;     // the skipped element's end is offered with its text
  const ZtField* m_pText;       // the row that the skipped element's text is for, or null
  const char* m_pNamed;         // where the name was that was normalised last
  ZtArena* m_pArena = nullptr;  // of what is made, null for the heap
  const ZtElementType* m_Types[kMostTypes];  // of the document, once they are asked for
  std::size_t m_iTypes = 0;
  ZtChildList m_ReplacedRoots;  // earlier roots: they may still be open
};

/// The decoder of the document that `Context` describes; `Base` is ZtSchemaDecoder or
/// ZtNamespaceDecoder.
template <class Context, class Base = ZtSchemaDecoder>
class ZtDecoderOf : public Base {
 public:
  ZtDecoderOf() : Base(Context::kDocument) {}
};

#endif  // ZTXML_INCLUDE_ZTSCHEMADECODER_H
