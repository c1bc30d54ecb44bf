// A strict reader of XML 1.0 with namespaces: tags and texts one after another, as they are asked
// for, in place. It accepts what is well formed, without a document type of its own, and nothing
// else.
#ifndef ZTXML_SRC_TEXT_ZTXMLREADER_H
#define ZTXML_SRC_TEXT_ZTXMLREADER_H

#include <cstdint>

#include "text/ZtNamespaceScope.h"

enum class ZtToken : std::uint8_t { kStart, kEnd, kText, kDone, kFailed };

// Pieces of the document's text, without NULs at their ends.
struct ZtXmlName {
  ZtPiece prefix;  // its text is null when there is none
  ZtPiece local;
  ZtSpace space;
};

// As it stands in the document, with its prefix.
inline ZtPiece ZtQualified(const ZtXmlName& name) {
  if (!name.prefix.text) return name.local;
  const char* const end = name.local.text + name.local.size;
  return {name.prefix.text, static_cast<std::size_t>(end - name.prefix.text)};
}

struct ZtXmlAttribute {
  ZtXmlName name;
  ZtPiece value;  // resolved and normalised, with a NUL
  // Offsets in the source: where the name begins, and of what stands between the quotes.
  std::uint32_t from;
  std::uint32_t valueFrom;
  std::uint32_t valueTo;
};

enum class ZtXmlFault : std::uint8_t {
  kNone,
  kNoElement,
  kNotClosed,
  kCutShort,
  kWrongEndTag,
  kBadName,
  kBadTag,
  kBadEndTag,
  kNoEquals,
  kNoQuote,
  kLessThanInValue,
  kAttributeTwice,
  kUnboundPrefix,
  kReservedPrefix,
  kReservedNamespace,
  kNoNamespace,
  kUndefinedEntity,
  kBadReference,
  kBadCharacterReference,
  kSectionEndInText,
  kBadComment,
  kBadInstruction,
  kBadDeclaration,
  kMisplacedDeclaration,
  kBadMarkup,
  kTextBeforeRoot,
  kJunkAfterRoot,
  kBadDocumentType,
  kMisplacedDocumentType,
  kInternalSubset,
  kTooLarge,
  kOutOfMemory,
};
// A sentence for people, static; null for kNone.
const char* ZtFaultText(ZtXmlFault fault);

struct ZtXmlError {
  static constexpr std::size_t kNowhere = SIZE_MAX;

  ZtXmlFault fault = ZtXmlFault::kNone;
  std::size_t at = 0;
  // What it contradicts: the start tag that is not closed or has another name, the first of two
  // attributes; kNowhere for other faults.
  std::size_t other = kNowhere;
};

class ZtXmlReader {
 public:
  // The URIs of namespaces 1 to `count`, borrowed, as their texts are.
  ZtXmlReader(const ZtPiece* known, unsigned count) : m_Scope(known, count) {}
  ZtXmlReader(const ZtXmlReader&) = delete;
  ZtXmlReader& operator=(const ZtXmlReader&) = delete;

  // Begins with a text of XML's characters in UTF-8 (see ZtDecode), followed by a NUL. The reader
  // borrows it and changes it as it goes on. The texts of a token may be changed by the caller once
  // the next one is there, and so may what lies between two texts of one element.
  void Begin(char* text, std::size_t size);
  // kDone and kFailed come again and again.
  ZtToken Next();

  // With a kStart or kEnd: leaves its element, and goes on at `offset`, where something begins that
  // the element around it has and that was not read yet.
  void Resume(std::size_t offset) {
    Leave();
    m_pAt = m_pText + offset;
    m_Token = ZtToken::kText;
  }

  // With a kStart: binds a prefix in its element as if the tag did. Both texts are borrowed until
  // the element ends.
  ZtNamespaceScope::Result Declare(ZtPiece prefix, ZtPiece uri) {
    return m_Scope.Declare(prefix, uri, m_Open.Size());
  }

  ZtToken Token() const { return m_Token; }
  const ZtXmlError& Error() const { return m_Error; }
  // Offsets of the token's source: a tag from '<' to after its '>', a text as it was written, a
  // CDATA section with its markup. Both are those of the end for the kEnd of an empty-element tag.
  std::size_t From() const { return Offset(m_pFrom); }
  std::size_t To() const { return Offset(m_pAt); }

  // Of kStart and kEnd.
  const ZtXmlName& Name() const { return m_Name; }
  // Of kStart: whether it is `<a/>`, which a kEnd follows, too.
  bool IsEmpty() const { return m_bEmpty; }
  // Of kStart, without the declarations of namespaces.
  const ZtXmlAttribute* Attributes() const { return m_Attributes.begin(); }
  std::uint32_t AttributeCount() const { return m_Attributes.Size(); }

  // Of kText: one run of characters up to the next markup, or one CDATA section; without a NUL, for
  // which there is room once the next token is there. Comments and instructions are passed over.
  ZtPiece Text() const { return m_Text; }
  bool IsCData() const { return m_bCData; }

  // Open elements, with the one that a kStart or kEnd is of.
  std::uint32_t Depth() const { return m_Open.Size(); }
  // The namespaces in scope; with a kStart or kEnd, those within its element.
  const ZtNamespaceScope& Scope() const { return m_Scope; }

 private:
  struct Open {
    std::uint32_t from;    // of the start tag
    std::uint32_t size;    // of the name, which begins after the '<'
    std::uint32_t prefix;  // size of the name's prefix
    ZtSpace space;
    std::uint32_t declarations;  // in scope outside of the element
  };
  enum class Place : std::uint8_t { kBeforeRoot, kInside, kAfterRoot };

  // These return false when they fail.
  bool Scan();
  bool Finish();
  bool StartTag(char* from);
  bool Attribute(char*& at);
  [[gnu::cold]] bool RestOfValue(char*& at, char quote, char*& end);
  [[gnu::cold]] bool Declare(ZtPiece prefix, ZtPiece uri, std::uint32_t from);
  bool ResolveNames();
  [[gnu::cold]] bool AreDifferent();
  [[gnu::cold]] bool AreManyDifferent();
  bool EndTag(char* from);
  bool CharacterData(char* from);
  [[gnu::cold]] bool Markup(char* from);
  [[gnu::cold]] bool Section(char* from);
  [[gnu::cold]] bool Comment(char* from);
  [[gnu::cold]] bool Instruction(char* from);
  [[gnu::cold]] bool DocumentType(char* from);
  bool Reference(char*& at, char*& to);
  [[gnu::cold]] bool CharacterReference(char*& at, char*& to);
  void Leave();

  [[gnu::cold]] bool Fail(ZtXmlFault fault, const char* at,
                          std::size_t other = ZtXmlError::kNowhere);
  // At the end of the text, the fault is that it is cut short.
  [[gnu::cold]] bool FailAt(ZtXmlFault fault, const char* at);
  std::uint32_t Offset(const char* at) const { return static_cast<std::uint32_t>(at - m_pText); }

  char* m_pText = nullptr;
  char* m_pEnd = nullptr;
  char* m_pFrom = nullptr;
  char* m_pAt = nullptr;
  ZtToken m_Token = ZtToken::kDone;
  Place m_Place = Place::kBeforeRoot;
  bool m_bEmpty = false;
  bool m_bCData = false;
  bool m_bPrefixed = false;  // whether an attribute has a prefix
  bool m_bDocumentType = false;
  std::uint64_t m_iSeen = 0;   // of the attributes' names
  std::uint64_t m_iAlike = 0;  // likewise of those that more than one may have
  ZtXmlName m_Name{nullptr, nullptr, kZtNoSpace};
  ZtPiece m_Text = nullptr;
  ZtXmlError m_Error;
  ZtSmallArray<Open, 16> m_Open;
  ZtSmallArray<ZtXmlAttribute, 16> m_Attributes;
  ZtNamespaceScope m_Scope;
};

#endif  // ZTXML_SRC_TEXT_ZTXMLREADER_H
