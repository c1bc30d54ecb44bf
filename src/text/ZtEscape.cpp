#include "text/ZtEscape.h"

#include <initializer_list>

#include "base/ZtBytes.h"
#include "text/ZtCharacters.h"
#include "text/ZtEncoding.h"

namespace {

// What stands for a character of ASCII where it cannot stand for itself; null where it can.
ZtPiece ReferenceTo(char c, char quote) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\r':
      return "&#13;";  // a reader makes a line feed of a carriage return
    case '"':
      return quote == c ? ZtPiece("&quot;") : ZtPiece(nullptr);
    case '\'':
      return quote == c ? ZtPiece("&apos;") : ZtPiece(nullptr);
    case '\t':
      return quote ? ZtPiece("&#9;") : ZtPiece(nullptr);  // in values these two become blanks
    case '\n':
      return quote ? ZtPiece("&#10;") : ZtPiece(nullptr);
    default:
      return nullptr;
  }
}

// The bytes that may need more than to be copied.
class Plain {
 public:
  constexpr Plain() {
    for (unsigned c = 0; c < sizeof(m_Is); ++c) m_Is[c] = c >= ' ' && c < 0x80;
    for (const char c : {'&', '<', '>', '"', '\''}) m_Is[static_cast<unsigned char>(c)] = false;
  }
  constexpr bool Has(char c) const { return m_Is[static_cast<unsigned char>(c)]; }

 private:
  bool m_Is[256] = {};
};
constexpr Plain kPlain;

// All ones in the bytes of a block that are not plain.
ZtBlock NotPlain(ZtBlock block) {
  using SignedBlock = signed char __attribute__((vector_size(16)));
  // The bytes below a blank are those beyond ASCII, too.
  const auto low =
      reinterpret_cast<ZtBlock>(reinterpret_cast<SignedBlock>(block) < SignedBlock{} + ' ');
  static_assert(('&' | 1) == '\'' && ('<' | 2) == '>');
  return low | ZtMatches(block, '"') | ZtMatches(block | 1, '\'') | ZtMatches(block | 2, '>');
}

const char* EndOfPlain(const char* at, const char* end) {
  for (; ZtHasBlock(at, end); at += sizeof(ZtBlock)) {
    const unsigned first = ZtFirst(NotPlain(ZtGet<ZtBlock>(at)));
    if (first < sizeof(ZtBlock)) return at + first;
  }
  while (at != end && kPlain.Has(*at)) ++at;
  return at;
}

// Copies a text. False when it holds bytes that are not plain.
bool CopyPlain(char* to, ZtPiece text) {
  if (text.size < sizeof(std::uint32_t)) {
    for (std::size_t i = 0; i < text.size; ++i) {
      if (!kPlain.Has(text.text[i])) return false;
      to[i] = text.text[i];
    }
    return true;
  }
  if (text.size < sizeof(std::uint64_t)) {
    ZtCopyEnds<std::uint32_t>(to, text);
    const char* const end = text.text + text.size - sizeof(std::uint32_t);
    const std::uint64_t start = ZtGet<std::uint32_t>(text.text);
    const std::uint64_t both = start << 32 | ZtGet<std::uint32_t>(end);
    return !ZtAny(NotPlain(ZtJoin(both, both)));
  }
  if (text.size < sizeof(ZtBlock)) {
    ZtCopyEnds<std::uint64_t>(to, text);
    const char* const end = text.text + text.size - sizeof(std::uint64_t);
    return !ZtAny(NotPlain(ZtJoin(ZtGet<std::uint64_t>(text.text), ZtGet<std::uint64_t>(end))));
  }
  const std::size_t last = text.size - sizeof(ZtBlock);
  auto block = ZtGet<ZtBlock>(text.text + last);
  ZtPut(to + last, block);
  ZtBlock found = NotPlain(block);
  for (std::size_t i = 0; i < last; i += sizeof(ZtBlock)) {
    block = ZtGet<ZtBlock>(text.text + i);
    ZtPut(to + i, block);
    found |= NotPlain(block);
  }
  return !ZtAny(found);
}

bool Begins(std::uint32_t c) {
  return c < 0x80 ? (c | 0x20) - 'a' < 26U || c == '_' : ZtBeginsName(c);
}
bool Continues(std::uint32_t c) {
  if (c >= 0x80) return ZtContinuesName(c);
  return Begins(c) || c - '0' < 10U || c == '-' || c == '.';
}

}  // namespace

bool ZtAppendEscaped(ZtBuffer& to, ZtPiece text, char quote) {
  char* const room = kZtHasVectors ? to.Room(text.size) : nullptr;
  if (room && CopyPlain(room, text)) {
    to.End(room + text.size);
    return true;
  }
  const std::size_t size = to.Size();
  const char* at = text.text;
  const char* const end = at + text.size;
  const char* copied = at;
  while ((at = EndOfPlain(at, end)) != end) {
    if (static_cast<unsigned char>(*at) >= 0x80) {
      if (!ZtPassCharacter(at, end)) break;
      continue;
    }
    const char c = *at;
    if (c < ' ' && !ZtIsBlank(c)) break;
    const ZtPiece reference = ReferenceTo(c, quote);
    if (reference.text) {
      to.Append({copied, static_cast<std::size_t>(at - copied)});
      to.Append(reference);
      copied = at + 1;
    }
    ++at;
  }
  if (at != end) {
    to.Cut(size);
    return false;
  }
  to.Append({copied, static_cast<std::size_t>(at - copied)});
  return true;
}

namespace {

// An attribute whose value is not plain, or for which there is no room yet.
[[gnu::cold]] bool AppendSlowly(ZtBuffer& to, ZtPiece prefix, ZtPiece name, ZtPiece value) {
  for (const ZtPiece piece : {ZtPiece(" "), prefix, name, ZtPiece("=\"")}) to.Append(piece);
  const bool done = ZtAppendEscaped(to, value, '"');
  to.Append('"');
  return done;
}

}  // namespace

bool ZtAppendAttribute(ZtBuffer& to, ZtPiece prefix, ZtPiece name, ZtPiece value) {
  const std::size_t size = prefix.size + name.size + value.size + sizeof(" =\"\"") - 1;
  if (char* at = kZtHasVectors ? to.Room(size) : nullptr) {
    *at++ = ' ';
    at = ZtCopy(ZtCopy(at, prefix), name);
    *at++ = '=';
    *at++ = '"';
    if (CopyPlain(at, value)) {
      at += value.size;
      *at++ = '"';
      to.End(at);
      return true;
    }
  }
  return AppendSlowly(to, prefix, name, value);
}

bool ZtIsQualifiedName(ZtPiece name) {
  if (!name.size || !ZtIsXmlText(name)) return false;
  const char* at = name.text;
  const char* const end = at + name.size;
  bool begins = true;
  bool colon = false;
  while (at != end) {
    const std::uint32_t c = ZtGetUtf8(at);
    if (c == ':') {
      if (begins || colon) return false;
      begins = colon = true;
      continue;
    }
    if (!(begins ? Begins(c) : Continues(c))) return false;
    begins = false;
  }
  return !begins;
}
