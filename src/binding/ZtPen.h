// What an element writer appends most, straight into the document writer's buffer: each operation
// asks once for the room that all its parts take. Where that is short the writer's own operations
// do it, which cut the text.
#ifndef ZTXML_SRC_BINDING_ZTPEN_H
#define ZTXML_SRC_BINDING_ZTPEN_H

#include "base/ZtBytes.h"
#include "binding/ZtNames.h"
#include "ztXMLDocGenerator.h"

class ZtPen {
 public:
  explicit ZtPen(ZtXMLDocGenerator& writer) : m_Writer(writer) {}

  // The writer, for what is not written often.
  ZtXMLDocGenerator& Writer() { return m_Writer; }
  // The document so far, null without memory for it.
  ZtPiece Document() const {
    const char* text = m_Writer.ztGetXmlDoc();
    return {text, static_cast<std::size_t>(m_Writer.m_pAt - text)};
  }
  // The prefix of the elements from here on; it outlives its use.
  void Prefix(ZtPiece prefix) { m_Writer.UsePrefix(prefix); }

  // A start tag, up to the blank before its first attribute or its end.
  void Open(ZtPiece name) {
    char* at = RoomFor(PrefixSize() + name.size);
    if (!at) return m_Writer.Start(name, 1);
    at = Name(Literal(at, "\n<"), name);
    m_Writer.m_pAt = Literal(at, " ");
  }
  // An attribute between two blanks; its name is a row's or, when told, any text.
  template <bool kIsRow = true>
  void Attribute(ZtPiece name, ZtPiece value) {
    if (char* at = value.text ? RoomFor(name.size + value.size) : nullptr) {
      at = Literal(at, " ");
      at = Literal(kIsRow ? Row(at, name) : ZtCopy(at, name), "=\"");
      if (Unquoted(at, value)) {
        m_Writer.m_pAt = Literal(at + value.size, "\" ");
        return;
      }
    }
    m_Writer.Attribute(name, value, nullptr, 0, 0);
  }
  // The same of a name with a suffix, where the value is known to hold no double quote.
  void Attribute(ZtPiece name, ZtPiece suffix, ZtPiece value) {
    char* at = RoomFor(name.size + suffix.size + value.size);
    if (!at) return m_Writer.Attribute(name, value, suffix, 0, 0);
    at = Literal(Row(Literal(Row(Literal(at, " "), name), ":"), suffix), "=\"");
    m_Writer.m_pAt = Literal(ZtCopy(at, value), "\" ");
  }
  // Ends a start tag in place of the blank behind its name or last attribute.
  void Close(bool selfEnd) {
    if (selfEnd || m_Writer.m_bCutReported || !m_Writer.buffer) return m_Writer.CloseTag(selfEnd);
    m_Writer.m_pAt[-1] = '>';
    m_Writer.tagOpen = 0;
  }
  // Leaves it open instead.
  void LeaveOpen() { m_Writer.tagOpen = 1; }
  void Text(ZtPiece text) {
    char* at = m_Writer.tagOpen == 1 || !text.text ? nullptr : RoomFor(text.size);
    if (!at) return m_Writer.Text(text);
    m_Writer.m_pAt = ZtCopy(at, text);
  }
  void End(ZtPiece name) {
    char* at = RoomFor(PrefixSize() + name.size);
    if (!at) return m_Writer.End(name);
    at = Name(Literal(at, "</"), name);
    m_Writer.m_pAt = Literal(at, ">");
    m_Writer.tagOpen = 0;
  }
  // An element with a text and nothing else.
  void TextElement(ZtPiece name, ZtPiece text) {
    char* at = text.text ? RoomFor(2 * (PrefixSize() + name.size) + text.size) : nullptr;
    if (!at) return m_Writer.TextElement(name, text);
    at = Literal(Name(Literal(at, "\n<"), name), ">");
    at = Name(Literal(ZtCopy(at, text), "</"), name);
    m_Writer.m_pAt = Literal(at, ">");
    m_Writer.tagOpen = 0;
  }

 private:
  // Room for what an operation writes besides the pieces that it counts, and for what the copy of a
  // row writes too much.
  static constexpr std::size_t kSlack = 32;

  std::size_t PrefixSize() const { return m_Writer.m_iPrefixSize; }
  char* RoomFor(std::size_t size) const {
    char* const at = m_Writer.m_pAt;
    return size + kSlack < static_cast<std::size_t>(m_Writer.m_pEnd - at) ? at : nullptr;
  }

  template <std::size_t N>
  static char* Literal(char* to, const char (&literal)[N]) {
    std::memcpy(to, literal, N - 1);
    return to + N - 1;
  }
  // A name that lies in a row, which has room for whole blocks: these are quickest.
  static char* Row(char* to, ZtPiece name) {
    std::size_t i = 0;
    do {
      ZtPut(to + i, ZtGet<ZtBlock>(name.text + i));
      i += sizeof(ZtBlock);
    } while (i < name.size);
    return to + name.size;
  }
  // A name behind the prefix.
  char* Name(char* to, ZtPiece name) const {
    if (m_Writer.nsPrefix) {
      to = Literal(ZtCopy(to, {m_Writer.nsPrefix, m_Writer.m_iPrefixSize}), ":");
    }
    return Row(to, name);
  }

  // Whether one of the bytes in the word is a double quote.
  static bool HasQuote(std::uint64_t word) {
    constexpr std::uint64_t kOnes = ~std::uint64_t{0} / 255;
    const std::uint64_t other = word ^ (kOnes * '"');
    return ((other - kOnes) & ~other & (kOnes * 128)) != 0;
  }
  // Copies a value; false when it holds a double quote.
  static bool Unquoted(char* to, ZtPiece value) {
    const char* const from = value.text;
    if (value.size >= sizeof(ZtBlock)) return UnquotedBlocks(to, value);
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
  static bool UnquotedBlocks(char* to, ZtPiece value) {
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

  ZtXMLDocGenerator& m_Writer;
};

#endif  // ZTXML_SRC_BINDING_ZTPEN_H
