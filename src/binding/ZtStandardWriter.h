// Writes trees in the standard profile: always XML with its namespaces declared, or nothing.
#ifndef ZTXML_SRC_BINDING_ZTSTANDARDWRITER_H
#define ZTXML_SRC_BINDING_ZTSTANDARDWRITER_H

#include "base/ZtBuffer.h"
#include "base/ZtNameSet.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtPath.h"
#include "binding/ZtStandard.h"

// Why something cannot be written.
inline constexpr char kZtMissing[] = "a required value is missing";
inline constexpr char kZtTooLong[] = "the text is longer than the limit";
inline constexpr char kZtNoRoot[] = "the root is of no class that this document begins with";
inline constexpr char kZtNotXml[] = "it holds what XML does not allow";
inline constexpr char kZtBadName[] = "this is no name of an attribute";
inline constexpr char kZtUnpaired[] = "the lists that alternate are not of one size";
inline constexpr char kZtUnbound[] = "its prefix is not declared";

// The part of a qualified name before its colon; a null text without one.
inline ZtPiece ZtPrefixIn(ZtPiece name) {
  const void* colon = name.size ? std::memchr(name.text, ':', name.size) : nullptr;
  if (!colon) return nullptr;
  return {name.text, static_cast<std::size_t>(static_cast<const char*>(colon) - name.text)};
}

// The part after it.
inline ZtPiece ZtLocalIn(ZtPiece name) {
  const std::size_t prefix = ZtPrefixIn(name).size;
  return prefix ? ZtPiece(name.text + prefix + 1, name.size - prefix - 1) : name;
}
// Whether an attribute of that name declares a namespace.
inline bool ZtDeclares(ZtPiece name) {
  const ZtPiece first = ZtPrefixIn(name).text ? ZtPrefixIn(name) : name;
  return first.size == 5 && std::memcmp(first.text, "xmlns", 5) == 0;
}

class ZtStandardWriter {
 public:
  explicit ZtStandardWriter(ZtBuffer& to) : m_To(to) {}

  // The whole of a document: `root`, an object of `type`, under its element's name.
  bool WriteDocument(const ZtDocument& document, const XMLElement& root, const ZtElementType& type,
                     ZtNameId name);

  // For what goes into a document that there is: no line breaks, the prefixes of `outer` (null:
  // none), no namespaces when it is `plain`. The child that `row` of a parent keeps, whose children
  // are in `space`; false when it cannot be written.
  void Inside(const ZtNamespaceScope* outer, bool plain);
  bool WriteChild(const ZtField& row, ZtSpace space, const XMLElement& child);
  bool WriteTextElement(const ZtField& row, ZtSpace space, ZtPiece text);

  // Whether an object that a row keeps is there to be written: a flag may say that it is not.
  static bool IsThere(const XMLElement& child);

  // After a failure: where in the tree, and why, static; null when memory was lacking or the text
  // too long.
  const char* Path() const { return m_Path.Text(); }
  const char* Why() const { return m_Why; }

 private:
  struct Frame {
    const XMLElement* object = nullptr;
    const ZtElementType* type = nullptr;
    ZtSpace space = kZtNoSpace;  // of its children
    ZtSpace own = kZtNoSpace;    // of the element
    ZtPiece prefix = nullptr;
    ZtPiece name = nullptr;
    std::uint32_t index = 0;         // among its like, 0 for one that occurs once
    const ZtField* row = nullptr;    // the next one
    ZtListNode* node = nullptr;      // the next one of the row's list
    ZtListNode* other = nullptr;     // of the list that alternates with it
    std::uint32_t entry = 0;         // of the list, from 1; 0 before it was begun
    std::uint32_t declarations = 0;  // in scope outside
    std::uint32_t depth = 1;
    bool hasDefault = false;  // whether a default namespace was declared within what is written
    bool isOpen = false;      // the start tag lacks its end
    bool hasText = false;     // line breaks would be part of it
    bool breaks = false;      // a line break comes before it
  };
  struct Declaration {
    ZtPiece prefix;
    ZtPiece uri;
  };

  Frame Within(const Frame* parent) const;
  bool Push(const XMLElement& object, const ZtMatch& match, ZtPiece name, std::uint32_t index);
  bool Run();
  bool Step(Frame& frame);
  bool StepList(Frame& frame, const ZtField& row);
  bool BeginChild(Frame& frame, const ZtField& row, const XMLElement& child, std::uint32_t index);
  bool MayLack(const Frame& frame, const ZtField& row, const char* sign);
  bool WriteOwnText(Frame& frame, const ZtField& row);
  void CloseTag(Frame& frame);

  bool StartTag(Frame& frame, ZtSpace space);
  void OpenTag(const Frame& frame);
  bool DeclareFixed(Frame& frame);
  bool DeclareOthers(Frame& frame, const ZtAttributeList& others);
  bool Declare(Frame& frame, ZtPiece prefix, ZtPiece uri);
  bool Resolve(Frame& frame, ZtSpace space, const Frame* parent);
  bool FindPrefix(const Frame& frame, ZtSpace space, ZtPiece& prefix) const;
  ZtPiece UriOf(ZtPiece prefix) const;
  bool WriteOthers(const ZtAttributeList& others);
  bool WriteOther(const zt_AttributeValuePair& pair);
  bool IsNew(ZtPiece uri, std::uint32_t number, ZtPiece local);
  void EndTag(const Frame& frame);
  bool Fail(const char* why, const char* sign = nullptr, ZtPiece name = nullptr,
            std::uint32_t index = 0);

  ZtBuffer& m_To;
  ZtNamespaceScope m_Scope{kZtSpaceUris, kZtKnownSpaces};
  const ZtNamespaceScope* m_pOuter = nullptr;
  bool m_bPlain = false;
  bool m_bNoMemory = false;
  bool m_bBreaks = true;
  const char* m_Why = nullptr;
  ZtPath m_Path;
  ZtSmallArray<Frame, 8> m_Frames;
  ZtSmallArray<Declaration, 4> m_New;  // of the tag
  ZtNameSet m_Attributes;              // of the tag
};

#endif  // ZTXML_SRC_BINDING_ZTSTANDARDWRITER_H
