// Looks at a text that could not be read once more, for what to say of it: which elements are open
// at a place, and what is wrong with a tag. Nothing is allocated, and each look costs one pass.
#ifndef ZTXML_SRC_TEXT_ZTTAGWALK_H
#define ZTXML_SRC_TEXT_ZTTAGWALK_H

#include "text/ZtXmlReader.h"

// How far a tag, a comment or a section reaches: to where XML has its end, or to the first '>', as
// the parser of the exact profile has it.
enum class ZtTagEnds : std::uint8_t { kAsXml, kFirst };

struct ZtRawTag {
  enum class Kind : std::uint8_t { kStart, kEmpty, kEnd, kOther };

  Kind kind = Kind::kOther;
  std::size_t from = 0;  // its '<'
  std::size_t to = 0;    // after its '>', or where the text ends
  ZtPiece name = nullptr;

  bool Opens() const { return kind == Kind::kStart || kind == Kind::kEmpty; }
};

class ZtTagWalk {
 public:
  ZtTagWalk(ZtPiece text, ZtTagEnds ends) : m_Text(text), m_Ends(ends) {}

  // The next tag; false when there is none.
  bool Next(ZtRawTag& tag);

 private:
  ZtPiece m_Text;
  ZtTagEnds m_Ends;
  std::size_t m_iAt = 0;
};

// The elements around a place of a text.
class ZtOpenElements {
 public:
  static constexpr std::size_t kKept = 64;
  static constexpr std::size_t kNowhere = SIZE_MAX;

  // `at` is where something begins; a start tag that it is in opens its element.
  ZtOpenElements(ZtPiece text, ZtTagEnds ends, std::size_t at);

  // How many there are, and where the start tag of the innermost one begins.
  std::size_t Depth() const { return m_iDepth; }
  std::size_t Innermost() const { return m_iInnermost; }
  // The outermost ones, up to kKept: their names, and which one each is among its siblings of the
  // same name, from 1 on.
  std::size_t Kept() const { return m_iDepth < kKept ? m_iDepth : kKept; }
  ZtPiece Name(std::size_t level) const { return m_Levels[level].name; }
  std::size_t Index(std::size_t level) const { return m_Levels[level].index; }

 private:
  struct Level {
    std::size_t from;
    ZtPiece name = nullptr;
    std::size_t index;
  };

  std::size_t m_iDepth = 0;
  std::size_t m_iInnermost = kNowhere;
  Level m_Levels[kKept];
};

// The name in a tag that begins with '<' or "</": all up to a blank, a slash or the tag's end.
ZtPiece ZtNameInTag(ZtPiece text, std::size_t tag);
// The last attribute that begins in the tag at `tag` before `at`; empty when there is none.
ZtPiece ZtLastAttribute(ZtPiece text, std::size_t tag, std::size_t at);
// What is wrong with the start tag at `tag` in a text with a NUL after it, if that can be told by
// its characters: names, quotes and equals signs. kCutShort where it has no end.
ZtXmlError ZtFaultInTag(ZtPiece text, std::size_t tag);

#endif  // ZTXML_SRC_TEXT_ZTTAGWALK_H
