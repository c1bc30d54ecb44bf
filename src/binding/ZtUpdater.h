// Writes a document that was read, with only that changed which was changed in its tree.
#ifndef ZTXML_SRC_BINDING_ZTUPDATER_H
#define ZTXML_SRC_BINDING_ZTUPDATER_H

#include "binding/ZtSourceText.h"
#include "binding/ZtStandardReader.h"
#include "binding/ZtStandardWriter.h"

// Reads the source once more, beside the tree. What it finds as the tree has it is copied; where
// they differ, the tree's is written. The cost is that of reading, whatever has changed.
class ZtUpdater {
 public:
  ZtUpdater(const ZtSourceText& source, ZtBuffer& to);
  ~ZtUpdater();
  ZtUpdater(const ZtUpdater&) = delete;
  ZtUpdater& operator=(const ZtUpdater&) = delete;

  // Appends the document, in UTF-8. False when memory is lacking, or the tree holds something that
  // cannot be written: Why and Path tell it then.
  bool Write(XMLElement& root);

  const char* Path() const { return m_Path.Text(); }
  const char* Why() const { return m_Why; }

 private:
  using Part = ZtSourceText::Part;
  static constexpr std::uint32_t kNone = ZtSourceText::kNone;

  // Where a row of an element is at.
  struct RowState {
    ZtListNode* node;       // of a list the next one that has no place yet
    std::uint32_t pending;  // the next of what is new
    std::uint32_t end;      // after the last of it
  };
  // A child that the source does not have, written to m_New.
  struct Pending {
    const ZtListNode* node;  // null for one that is not in a list
    std::size_t from;
    std::size_t to;
  };
  struct Range {
    std::size_t from;
    std::size_t to;
  };
  struct Declaration {
    ZtPiece prefix;
    ZtPiece uri;
  };
  // What is read: an element with an object, or one with a text.
  struct Frame {
    XMLElement* object = nullptr;  // of a text element its parent's, or the text
    const ZtElementType* type = nullptr;
    const ZtField* row = nullptr;   // of a text element
    const ZtField* next = nullptr;  // that its next child probably has
    ZtSpace space = kZtNoSpace;     // of its children
    ZtTextRun run;
    std::uint32_t part = kNone;
    std::uint32_t slot = kNone;  // the part in whose place it is written
    std::size_t from = 0;        // of its start tag
    std::size_t content = 0;     // after its start tag
    std::size_t last = 0;        // after the last known child, or `content`
    std::uint64_t taken = 0;     // rows of single children that were read again
    std::uint64_t gone = 0;      // those of them that are not there any more
    std::uint32_t rows = 0;      // where its row states begin
    std::uint32_t pending = 0;
    std::uint32_t texts = 0;
    std::size_t fresh = 0;  // the size of m_New outside of it
    bool isNew = false;     // whether something in it is
    bool isEmpty = false;   // <a/>, as long as nothing is in it
    bool isExpanded = false;
  };

  // Those that are cold are for what was changed.
  [[gnu::cold]] bool Index();
  std::uint32_t Slot(const void* object) const;
  std::uint32_t PartOf(const Frame& frame, const ZtField& row, const void* object,
                       std::uint32_t likely);
  std::uint32_t PartOfChild(const Frame& frame, const ZtField& row, const XMLElement& child,
                            std::uint32_t likely);

  bool StartRoot(XMLElement& root);
  bool Start();
  bool StartSingle(const ZtMatch& match);
  bool StartEntry(const ZtMatch& match);
  bool Enter(const ZtMatch& match, XMLElement* object, std::uint32_t slot);
  void Pass(std::uint32_t part);
  [[gnu::cold]] void Restore(std::size_t from, std::size_t to);
  bool Text();
  bool End();
  bool EndLeaf(Frame& leaf);
  bool EndObject(Frame& frame);

  bool Attributes(const Frame& frame);
  bool HasName(const Part& part, ZtPiece name) const;
  bool SortPairs(const Frame& frame);
  void RowNames(const Frame& frame, bool& failed);
  bool DeclarePair(const zt_AttributeValuePair& pair);
  bool DeclareHere(ZtPiece prefix, ZtPiece uri);
  bool IsBound(const zt_AttributeValuePair& pair);
  bool KeepPair(const ZtXmlAttribute& attribute);
  bool NewAttributes(const Frame& frame, std::uint64_t stated);
  bool NewAttribute(ZtPiece prefix, ZtPiece name, ZtPiece value);
  void CopyToEnd(const Frame& frame);
  bool ReplaceValue(const ZtXmlAttribute& attribute, ZtPiece text, bool trimmed);
  void RemoveAttribute(const ZtXmlAttribute& attribute);

  bool Prepare(Frame& frame);
  bool PrepareRow(const Frame& frame, const ZtField& row, RowState& state);
  [[gnu::cold]] bool IsUntouched(const Frame& frame, const ZtField& row) const;
  [[gnu::cold]] bool PreparePairs(const Frame& frame, const ZtField& row, const ZtListNode* node);
  bool PrepareChild(const Frame& frame, const ZtField& row, const XMLElement& child,
                    const ZtListNode* node, bool mayStay = true);
  [[gnu::cold]] bool PrepareText(const Frame& frame, const ZtField& row);
  [[gnu::cold]] bool Prepared(bool written, const ZtStandardWriter& writer, std::size_t from,
                              const ZtListNode* node);
  void Flush(Frame& frame, const ZtField* until);
  [[gnu::cold]] void FlushRow(Frame& frame, const ZtField& row);
  [[gnu::cold]] bool FlushOne(Frame& frame, const ZtField& row);

  [[gnu::cold]] bool OwnWords(Frame& frame, const ZtField& row);
  [[gnu::cold]] bool ReplaceContent(Frame& frame, const ZtField& row, ZtPiece text);

  RowState& StateOf(const Frame& frame, const ZtField& row) {
    return m_Rows[frame.rows + static_cast<std::uint32_t>(&row - frame.type->children())];
  }
  void CopyTo(std::size_t at);
  void SkipTo(std::size_t at) { m_iCopied = at; }
  [[gnu::cold]] void Remove(std::size_t from, std::size_t to);
  [[gnu::cold]] void OpenContent(Frame& frame);
  [[gnu::cold]] ZtPiece NameOf(const Frame& frame) const;
  [[gnu::cold]] bool Fail(const char* why, ZtPiece name = nullptr, const char* sign = "/");
  bool FailAttribute(const char* why, ZtPiece name) { return Fail(why, name, "/@"); }

  const ZtSourceText& m_Source;
  const ZtPiece m_Text;
  ZtBuffer& m_To;
  ZtBuffer m_New;
  ZtXmlReader m_Xml;
  char* m_pWork = nullptr;            // the copy that is read
  std::uint32_t* m_pSlots = nullptr;  // index + 1 of parts by their objects, once asked for
  std::uint32_t m_iMask = 0;
  char* m_pKept = nullptr;  // by part: whether its list still has the object
  std::uint32_t m_iPart = 0;
  std::uint32_t m_iLikely = 0;  // the part that the next child probably is
  bool m_bNoMemory = false;
  std::size_t m_iCopied = 0;
  std::size_t m_iSkipped = 0;
  std::size_t m_iDropped = 0;  // where the skipped element begins, if it goes
  bool m_bDrops = false;
  bool m_bPlain = false;
  const char* m_Why = nullptr;
  ZtPath m_Path;
  ZtSmallArray<Frame, 8> m_Frames;
  ZtSmallArray<RowState, 16> m_Rows;
  ZtSmallArray<Pending, 4> m_Pending;
  ZtSmallArray<Range, 4> m_Texts;
  // Of the tag that is read: what is new, and the names of all.
  ZtSmallArray<const zt_AttributeValuePair*, 4> m_Pairs;
  ZtSmallArray<Declaration, 4> m_Declared;
  ZtNameSet m_Names;
};

#endif  // ZTXML_SRC_BINDING_ZTUPDATER_H
