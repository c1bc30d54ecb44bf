// The operations of the document writer that most of a document is written with. Each asks once for
// the room that all its pieces take; near the end of the buffer the pieces are cut one by one.
#ifndef ZTXML_SRC_TEXT_ZTPEN_H
#define ZTXML_SRC_TEXT_ZTPEN_H

#include "base/ZtBytes.h"
#include "base/ZtDigits.h"
#include "ztxml/ztPlatform.h"
#include "ztxml/ztXMLDocGenerator.h"

// The room with which to begin a document after one of `size` bytes: it is mostly like that.
constexpr std::uint16_t ZtRoomAfter(std::size_t size) {
  const std::size_t room = size + size / 8 + 64;
  constexpr std::size_t kMost = ZtXMLDocGenerator::kBufferSize;
  return static_cast<std::uint16_t>(room < kMost ? room : kMost);
}

class ZtPen {
 public:
  class Tag;

  explicit ZtPen(ZtXMLDocGenerator& writer) : m_Writer(writer) {}

  // Begins an empty document, for which there is `room` at first, at most kBufferSize: it grows.
  void Begin(std::size_t room);
  // The document, which is the caller's then; null without memory. A text that is much shorter than
  // its room is copied. `dropsFirstNewline`: without a line break at its beginning.
  char* Take(bool dropsFirstNewline);
  // The size of the document so far.
  std::size_t Size() const { return static_cast<std::size_t>(m_Writer.m_pAt - m_Writer.buffer); }

  // The XML declaration, of a document that is empty.
  void Header();
  // The prefix of the elements from here on; it outlives its use.
  void Prefix(ZtPiece prefix) {
    if (!m_Writer.m_bPrefixBorrowed) return m_Writer.UsePrefix(prefix);
    m_Writer.nsPrefix = const_cast<char*>(prefix.text);
    m_Writer.m_iPrefixSize = prefix.size;
  }

  // A start tag as Tag writes it, for what is written seldom: an attribute whose name may be any
  // text, and one called name:suffix, whose value is known to hold no double quote.
  void Open(ZtPaddedPiece name);
  void Attribute(ZtPiece name, ZtPiece value);
  void Attribute(ZtPaddedPiece name, ZtPaddedPiece suffix, ZtPiece value);
  void Close(bool selfEnd);
  // Whether the start tag that is open has an attribute: a name ends with no quote.
  bool HasAttribute() const {
    return m_Writer.m_pAt - m_Writer.buffer > 1 && m_Writer.m_pAt[-2] == '"';
  }
  // The element's text. Intended: an absent text is written as one blank, where an empty element
  // could be expected; peers compare the text.
  void Text(ZtPiece text);
  [[gnu::always_inline]] void End(ZtPaddedPiece name) {
    m_Writer.tagOpen = 0;
    Append("</", Prefixed(name), ">");
  }
  void Empty(ZtPiece name);
  // An element with a text and nothing else.
  void TextElement(ZtPaddedPiece name, ZtPiece text);

 private:
  // ---- Kinds of pieces, besides literals and texts ----------------------------------------------

  // A name with the current prefix, if there is one.
  template <class Name>
  struct Qualified {
    ZtPiece prefix;
    Name name;
  };
  // A text that must not hold a double quote.
  struct Unquoted {
    ZtPiece text;
  };
  struct Decimal {
    std::uint32_t number;
  };
  template <class Name>
  Qualified<Name> Prefixed(Name name) const {
    return {{m_Writer.nsPrefix, m_Writer.m_iPrefixSize}, name};
  }

  // ---- Their sizes ------------------------------------------------------------------------------

  // What the copy of a padded piece may write after its end.
  static constexpr std::size_t kSlack = sizeof(ZtBlock);

  template <std::size_t N>
  static constexpr std::size_t Size(const char (&)[N]) {
    return N - 1;
  }
  static std::size_t Size(ZtPiece piece) { return piece.size; }
  static std::size_t Size(const Unquoted& piece) { return piece.text.size; }
  static std::size_t Size(Decimal) { return kZtMostDigits32; }
  template <class Name>
  static std::size_t Size(const Qualified<Name>& name) {
    return name.prefix.size + 1 + name.name.size;
  }

  // ---- Copies of them ---------------------------------------------------------------------------

  // Each returns the end of the copy.
  template <std::size_t N>
  static char* Put(char* to, const char (&literal)[N]) {
    if constexpr (N == 3) {  // a whole word takes fewer instructions than half of one
      const char word[4] = {literal[0], literal[1]};
      std::memcpy(to, word, sizeof(word));
    } else {
      std::memcpy(to, literal, N - 1);
    }
    return to + N - 1;
  }
  static char* Put(char* to, ZtPiece piece) {
    if (piece.size < sizeof(ZtBlock)) return ZtCopy(to, piece);
    const std::size_t last = piece.size - sizeof(ZtBlock);
    for (std::size_t i = 0; i < last; i += sizeof(ZtBlock)) {
      ZtPut(to + i, ZtGet<ZtBlock>(piece.text + i));
    }
    ZtPut(to + last, ZtGet<ZtBlock>(piece.text + last));
    return to + piece.size;
  }
  static char* Put(char* to, ZtPaddedPiece piece) {
    ZtPut(to, ZtGet<ZtBlock>(piece.text));
    if (__builtin_expect(piece.size > sizeof(ZtBlock), 0)) {
      std::size_t i = sizeof(ZtBlock);
      do {
        ZtPut(to + i, ZtGet<ZtBlock>(piece.text + i));
        i += sizeof(ZtBlock);
      } while (i < piece.size);
    }
    return to + piece.size;
  }
  static char* Put(char* to, Decimal piece) { return ZtPutDigits(to, piece.number); }
  template <class Name>
  static char* Put(char* to, const Qualified<Name>& name) {
    if (name.prefix.text) to = Put(Put(to, name.prefix), ":");
    return Put(to, name.name);
  }
  // Null when it holds a double quote; it is copied even so.
  [[gnu::always_inline]] static char* Put(char* to, const Unquoted& piece) {
    const char* const from = piece.text.text;
    const std::size_t size = piece.text.size;
    ZtBlock found;
    if (size >= sizeof(ZtBlock)) {
      const std::size_t last = size - sizeof(ZtBlock);
      auto block = ZtGet<ZtBlock>(from + last);
      ZtPut(to + last, block);
      found = ZtMatches(block, '"');
      for (std::size_t i = 0; i < last; i += sizeof(ZtBlock)) {
        block = ZtGet<ZtBlock>(from + i);
        ZtPut(to + i, block);
        found |= ZtMatches(block, '"');
      }
    } else if (size >= sizeof(std::uint64_t)) {
      found = ZtMatches(CopyHalves<std::uint64_t>(to, piece.text), '"');
    } else if (size >= sizeof(std::uint32_t)) {
      found = ZtMatches(CopyHalves<std::uint32_t>(to, piece.text), '"');
    } else {
      for (std::size_t i = 0; i < size; ++i) {
        if (from[i] == '"') return nullptr;
        to[i] = from[i];
      }
      return to + size;
    }
    return ZtAny(found) ? nullptr : to + size;
  }
  // Copies a text of as many bytes as one or two words have, and returns these.
  template <class Word>
  static ZtBlock CopyHalves(char* to, ZtPiece text) {
    const std::size_t last = text.size - sizeof(Word);
    const Word start = ZtGet<Word>(text.text);
    const Word end = ZtGet<Word>(text.text + last);
    ZtPut(to, start);
    ZtPut(to + last, end);
    return ZtJoin(start, end);
  }

  // ---- Appending --------------------------------------------------------------------------------

  // The end of the pieces when they stand at `at`. Null when a piece that must not hold a double
  // quote holds one, and when there may be no room up to `end`.
  template <class... Pieces>
  [[gnu::always_inline]] static char* Write(char* at, const char* end, const Pieces&... pieces) {
    const std::size_t size = (Size(pieces) + ...) + kSlack;
    if (size >= static_cast<std::size_t>(end - at)) return nullptr;
    return ((at = Put(at, pieces)) && ...) ? at : nullptr;
  }
  // False, with nothing appended, when a piece that must not hold a double quote holds one.
  template <class... Pieces>
  [[gnu::always_inline]] bool Append(const Pieces&... pieces) {
    char* const at = Write(m_Writer.m_pAt, m_Writer.m_pEnd, pieces...);
    if (!at) return AppendCut(Piece(pieces)...);
    m_Writer.m_pAt = at;
    return true;
  }

  // The pieces are handed on by value, so that those above need no address.
  template <class Any>
  static Any Piece(const Any& piece) {
    return piece;
  }
  static ZtPiece Piece(const char* literal) { return literal; }
  template <class... Pieces>
  [[gnu::noinline, gnu::cold]] bool AppendCut(Pieces... pieces) {
    if (!(IsFit(pieces) && ...)) return false;
    (Cut(pieces), ...);
    return true;
  }
  void AppendEscaped(ZtPiece name, ZtPiece value);
  void TextAfterOpenTag(ZtPiece text);

  template <class Any>
  static bool IsFit(const Any&) {
    return true;
  }
  static bool IsFit(const Unquoted& piece) {
    return !piece.text.size || !std::memchr(piece.text.text, '"', piece.text.size);
  }
  // Appends what there is room for.
  void Cut(ZtPiece piece);
  void Cut(Unquoted piece) { Cut(piece.text); }
  void Cut(Decimal piece) {
    char digits[kZtMostDigits32];
    const char* const end = ZtPutDigits(digits, piece.number);
    Cut(ZtPiece(digits, static_cast<std::size_t>(end - digits)));
  }
  template <class Name>
  void Cut(Qualified<Name> name) {
    Cut(name.prefix);
    if (name.prefix.text) Cut(ZtPiece(":", 1));
    Cut(name.name);
  }
  // Gives a document that began with less as much room as a document may have.
  void Grow();

  static constexpr std::ptrdiff_t kMostSize = ZtXMLDocGenerator::kBufferSize - 1;

  ZtXMLDocGenerator& m_Writer;
};

// A start tag that is being written. It knows where it ends so far; the pen knows that only once
// the tag is closed or left open. Intended: the name in a start tag is followed by a blank, and
// every attribute stands between two blanks, so that there are two before each attribute; peers
// compare documents byte for byte.
class ZtPen::Tag {
 public:
  [[gnu::always_inline]] Tag(ZtPen& pen, ZtPaddedPiece name) : m_Pen(pen) {
    Resume();
    Add("\n<", pen.Prefixed(name), " ");
  }
  // An attribute; a double quote in its value is escaped. A value without one, which nearly all
  // are, is found to be so while it is copied.
  [[gnu::always_inline]] void Text(ZtPaddedPiece name, ZtPiece value) {
    if (Add(" ", name, "=\"", Unquoted{value}, "\" ")) return;
    Leave();
    m_Pen.AppendEscaped(name, value);
    Resume();
  }
  // One whose value is known to hold no double quote.
  [[gnu::always_inline]] void Constant(ZtPaddedPiece name, ZtPaddedPiece value) {
    Add(" ", name, "=\"", value, "\" ");
  }
  [[gnu::always_inline]] void Number(ZtPaddedPiece name, std::uint32_t value) {
    Add(" ", name, "=\"", Decimal{value}, "\" ");
  }
  // Ends the tag in place of the blank after its name or last attribute.
  [[gnu::always_inline]] void Close(bool selfEnd) {
    if (m_pAt == m_pEnd) return m_Pen.Close(selfEnd);
    m_pAt[-1] = '>';
    if (selfEnd) {
      m_pAt[-1] = '/';
      *m_pAt++ = '>';
    }
    Leave();
    m_Pen.m_Writer.tagOpen = 0;
  }
  // The tag stays open, and what comes next is the pen's.
  void Leave() const {
    m_Pen.m_Writer.m_pAt = m_pAt;
    m_Pen.m_Writer.tagOpen = 1;
  }
  // The tag goes on after what the pen has written.
  void Resume() {
    m_pAt = m_Pen.m_Writer.m_pAt;
    m_pEnd = m_Pen.m_Writer.m_pEnd;
  }

 private:
  template <class... Pieces>
  [[gnu::always_inline]] bool Add(const Pieces&... pieces) {
    if (char* const at = Write(m_pAt, m_pEnd, pieces...)) {
      m_pAt = at;
      return true;
    }
    Leave();
    const bool added = m_Pen.AppendCut(Piece(pieces)...);
    Resume();
    return added;
  }
  ZtPen& m_Pen;
  char* m_pAt;
  const char* m_pEnd;
};

#endif  // ZTXML_SRC_TEXT_ZTPEN_H
