// The operations of the document writer that most of a document is written with. Each asks once for
// the room that all its pieces take; near the end of the buffer the pieces are cut one by one.
#ifndef ZTXML_SRC_TEXT_ZTPEN_H
#define ZTXML_SRC_TEXT_ZTPEN_H

#include "base/ZtBytes.h"
#include "ztxml/ztPlatform.h"
#include "ztxml/ztXMLDocGenerator.h"

class ZtPen {
 public:
  explicit ZtPen(ZtXMLDocGenerator& writer) : m_Writer(writer) {}

  // The document so far, null without memory for it.
  ZtPiece Document() const {
    const char* text = m_Writer.ztGetXmlDoc();
    return {text, static_cast<std::size_t>(m_Writer.m_pAt - text)};
  }
  // The prefix of the elements from here on; it outlives its use.
  void Prefix(ZtPiece prefix) { m_Writer.UsePrefix(prefix); }

  // A start tag, up to the blank before its first attribute or its end. Intended: the name in a
  // start tag is followed by a blank, and every attribute stands between two blanks, so that there
  // are two before each attribute; peers compare documents byte for byte.
  void Open(ZtPaddedPiece name) {
    m_Writer.tagOpen = 1;
    Append("\n<", Prefixed(name), " ");
  }
  // An attribute; a double quote in its value is escaped. A value without one, which nearly all
  // are, is found to be so while it is copied. The name is a ZtPaddedPiece or a ZtPiece.
  template <class Name>
  void Attribute(Name name, ZtPiece value) {
    if (!Append(" ", name, "=\"", Unquoted{value}, "\" ")) AppendEscaped(name, value);
  }
  // An attribute called name:suffix, whose value is known to hold no double quote.
  void Attribute(ZtPaddedPiece name, ZtPaddedPiece suffix, ZtPiece value) {
    Append(" ", name, ":", suffix, "=\"", value, "\" ");
  }
  // Ends the start tag in place of the blank after its name or last attribute.
  void Close(bool selfEnd) {
    m_Writer.tagOpen = 0;
    if (m_Writer.m_bCutReported || !m_Writer.buffer) return;  // the blank may be missing
    m_Writer.m_pAt[-1] = selfEnd ? '/' : '>';
    if (selfEnd) m_Writer.Cut({">", 1});
  }
  // The element's text. Intended: an absent text is written as one blank, where an empty element
  // could be expected; peers compare the text.
  void Text(ZtPiece text) {
    if (m_Writer.tagOpen == 1) m_Writer.Cut({">", 1});
    m_Writer.tagOpen = 0;
    Append(text.text ? text : ZtPiece(" ", 1));
  }
  void End(ZtPaddedPiece name) {
    m_Writer.tagOpen = 0;
    Append("</", Prefixed(name), ">");
  }
  void Empty(ZtPiece name) { Append("\n<", Prefixed(name), "/>"); }
  // An element with a text and nothing else.
  void TextElement(ZtPaddedPiece name, ZtPiece text) {
    m_Writer.tagOpen = 0;
    if (!text.text) text = {" ", 1};
    Append("\n<", Prefixed(name), ">", text, "</", Prefixed(name), ">");
  }

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
  template <class Name>
  static std::size_t Size(const Qualified<Name>& name) {
    return name.prefix.size + 1 + name.name.size;
  }

  // ---- Copies of them ---------------------------------------------------------------------------

  // Each returns the end of the copy.
  template <std::size_t N>
  static char* Put(char* to, const char (&literal)[N]) {
    std::memcpy(to, literal, N - 1);
    return to + N - 1;
  }
  static char* Put(char* to, ZtPiece piece) { return ZtCopy(to, piece); }
  static char* Put(char* to, ZtPaddedPiece piece) {
    std::size_t i = 0;
    do {
      ZtPut(to + i, ZtGet<ZtBlock>(piece.text + i));
      i += sizeof(ZtBlock);
    } while (i < piece.size);
    return to + piece.size;
  }
  template <class Name>
  static char* Put(char* to, const Qualified<Name>& name) {
    if (name.prefix.text) to = Put(ZtCopy(to, name.prefix), ":");
    return Put(to, name.name);
  }
  // Null when it holds a double quote.
  static char* Put(char* to, const Unquoted& piece) {
    return CopyUnquoted(to, piece.text) ? to + piece.text.size : nullptr;
  }

  // Whether one of the bytes in the word is a double quote.
  static bool HasQuote(std::uint64_t word) {
    constexpr std::uint64_t kOnes = ~std::uint64_t{0} / 255;
    const std::uint64_t other = word ^ (kOnes * '"');
    return ((other - kOnes) & ~other & (kOnes * 128)) != 0;
  }
  static bool CopyUnquotedBlocks(char* to, ZtPiece value) {
    const std::size_t last = value.size - sizeof(ZtBlock);
    ZtBlock found = {};
    const auto step = [&](std::size_t i) {
      const auto block = ZtGet<ZtBlock>(value.text + i);
      found |= ZtMatches(block, '"');
      ZtPut(to + i, block);
    };
    for (std::size_t i = 0; i < last; i += sizeof(ZtBlock)) step(i);
    step(last);
    return ZtFirst(found) == sizeof(ZtBlock);
  }

  // False when the text holds a double quote; it is copied even so.
  static bool CopyUnquoted(char* to, ZtPiece value) {
    const char* const from = value.text;
    if (value.size >= sizeof(ZtBlock)) return CopyUnquotedBlocks(to, value);
    if (value.size >= sizeof(std::uint64_t)) {
      ZtCopyEnds<std::uint64_t>(to, value);
      const std::size_t last = value.size - sizeof(std::uint64_t);
      return !HasQuote(ZtGet<std::uint64_t>(from)) && !HasQuote(ZtGet<std::uint64_t>(from + last));
    }
    if (value.size >= sizeof(std::uint32_t)) {
      ZtCopyEnds<std::uint32_t>(to, value);
      const std::size_t last = value.size - sizeof(std::uint32_t);
      const std::uint64_t start = ZtGet<std::uint32_t>(from);
      return !HasQuote(start << 32 | ZtGet<std::uint32_t>(from + last));
    }
    for (std::size_t i = 0; i < value.size; ++i) {
      if (from[i] == '"') return false;
      to[i] = from[i];
    }
    return true;
  }

  // ---- Appending --------------------------------------------------------------------------------

  // False, with nothing appended, when a piece that must not hold a double quote holds one.
  template <class... Pieces>
  [[gnu::always_inline]] bool Append(const Pieces&... pieces) {
    char* at = m_Writer.m_pAt;
    const std::size_t size = (Size(pieces) + ...) + kSlack;
    if (size >= static_cast<std::size_t>(m_Writer.m_pEnd - at)) return AppendCut(Piece(pieces)...);
    if (!((at = Put(at, pieces)) && ...)) return false;
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
  [[gnu::noinline]] bool AppendCut(Pieces... pieces) {
    if (!(IsFit(pieces) && ...)) return false;
    (Cut(pieces), ...);
    return true;
  }
  template <class Name>
  [[gnu::noinline]] void AppendEscaped(Name name, ZtPiece value) {
    if (!m_Writer.buffer) return;
    char* escaped = m_Writer.Escaped(value);
    for (const ZtPiece piece :
         {ZtPiece(" "), ZtPiece(name), ZtPiece("=\""), ZtPiece(escaped), ZtPiece("\" ")}) {
      Cut(piece);
    }
    __free(escaped);
  }

  template <class Any>
  static bool IsFit(const Any&) {
    return true;
  }
  static bool IsFit(const Unquoted& piece) {
    return !piece.text.size || !std::memchr(piece.text.text, '"', piece.text.size);
  }
  void Cut(ZtPiece piece) { m_Writer.Cut(piece); }
  void Cut(Unquoted piece) { m_Writer.Cut(piece.text); }
  template <class Name>
  void Cut(Qualified<Name> name) {
    Cut(name.prefix);
    if (name.prefix.text) Cut(ZtPiece(":", 1));
    Cut(name.name);
  }

  ZtXMLDocGenerator& m_Writer;
};

#endif  // ZTXML_SRC_TEXT_ZTPEN_H
