// Reads a document of the standard profile: rows are matched by namespace and name, texts are what
// they mean.
#ifndef ZTXML_SRC_BINDING_ZTSTANDARDREADER_H
#define ZTXML_SRC_BINDING_ZTSTANDARDREADER_H

#include "binding/ZtDocumentTable.h"
#include "binding/ZtPath.h"
#include "binding/ZtSourceText.h"
#include "binding/ZtStandard.h"
#include "text/ZtXmlReader.h"
#include "ztxml/ZtLoss.h"

// The character data of one element, whose pieces are moved together in place.
class ZtTextRun {
 public:
  void Add(ZtPiece piece) {
    auto* const text = const_cast<char*>(piece.text);
    if (!m_pText) m_pText = text;
    if (m_pText + m_iSize != text) std::memmove(m_pText + m_iSize, text, piece.size);
    m_iSize += piece.size;
  }
  bool IsEmpty() const { return m_iSize == 0; }
  ZtPiece Piece() const { return {m_pText, m_iSize}; }

 private:
  char* m_pText = nullptr;
  std::size_t m_iSize = 0;
};

// What is wanted besides the tree.
struct ZtReadOptions {
  ZtSourceText* source = nullptr;  // told where each object began
  ZtLossHandler lost = nullptr;    // told what the types do not keep
  void* context = nullptr;         // the handler's
  ZtPiece original = nullptr;      // the document as it came, for the places of losses
  ZtTextForm form = {};
  bool makes = true;                    // false: no tree is made, only losses are told
  const ZtElementType* root = nullptr;  // the only type that the root may be of, null for any
};

class ZtStandardReader {
 public:
  ZtStandardReader(const ZtDocument& document, ZtArena& arena, const ZtReadOptions& options);

  // The root of `text`, valid UTF-8 with a NUL after it, which is changed in place; null when it
  // cannot be read. With Options::makes false null in any case.
  XMLElement* Read(char* text, std::size_t size);

  // Why Read returned null: in the text, or because of its root, or for lack of memory.
  const ZtXmlReader& Xml() const { return m_Xml; }
  bool HasOtherRoot() const { return m_bOtherRoot; }

 private:
  // An open element with an object.
  struct Frame {
    XMLElement* object;
    const ZtElementType* type;
    const ZtField* next;   // the row that its next child probably has
    ZtSpace space;         // of its children
    ZtTextRun run;         // its own text
    std::uint64_t taken;   // the rows of single children and texts that it has had
    std::uint32_t part;    // in the source
    std::uint32_t counts;  // where its counts begin
    std::size_t path;      // its size without this element
  };
  struct Count {
    int name;
    std::uint32_t entries;
  };

  bool Start();
  bool StartRoot();
  bool StartChild(const ZtMatch& match);
  bool Open(XMLElement* object, const ZtElementType& type, ZtSpace space, const ZtField* row);
  bool Attributes(const Frame& frame);
  bool KeepPair(const Frame& frame, const ZtXmlAttribute& attribute);
  void Text();
  bool End();
  bool EndLeaf();
  bool EndObject();
  bool KeepWords(const Frame& frame, const ZtField& row);
  XMLElement* Make(const ZtMatch& match);
  bool Adopt(const Frame& parent, const ZtField& row, XMLElement* child);
  bool NotePart(const void* object, std::size_t from, std::size_t to, const ZtField* row);

  void Enter(ZtPiece name, bool isRepeated);
  void Lose(eZtLoss kind, const char* sign, ZtPiece name, std::size_t at);
  void LoseHere(eZtLoss kind, std::size_t at);
  void LoseAt(eZtLoss kind, const ZtTextPlace& place);

  [[gnu::always_inline]] Frame& Top() { return m_Frames.Last(); }
  [[gnu::always_inline]] ZtSource Source() const { return {m_Document.decoderSource, &m_Arena}; }
  ZtPiece Ended(ZtPiece text) const;

  const ZtDocument& m_Document;
  ZtArena& m_Arena;
  const ZtReadOptions m_Options;
  ZtXmlReader m_Xml;
  ZtPlaceFinder m_Places;
  ZtPath m_Path;
  ZtSmallArray<Frame, 8> m_Frames;
  ZtSmallArray<Count, 16> m_Counts;
  char* m_pText = nullptr;
  XMLElement* m_pRoot = nullptr;
  const ZtField* m_pLeaf = nullptr;  // the row of the text element that is open
  ZtTextRun m_LeafRun;
  std::size_t m_iLeafPath = 0;
  std::size_t m_iLeafFrom = 0;
  // Found when it begins: places are found from one to the next.
  ZtTextPlace m_LeafPlace;
  std::size_t m_iSkipped = 0;  // open elements that nobody knows
  bool m_bPlain = false;       // the document has no namespace
  bool m_bOtherRoot = false;
};

#endif  // ZTXML_SRC_BINDING_ZTSTANDARDREADER_H
