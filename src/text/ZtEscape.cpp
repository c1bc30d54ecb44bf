#include "text/ZtEscape.h"

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

bool Begins(std::uint32_t c) {
  return c < 0x80 ? (c | 0x20) - 'a' < 26U || c == '_' : ZtBeginsName(c);
}
bool Continues(std::uint32_t c) {
  if (c >= 0x80) return ZtContinuesName(c);
  return Begins(c) || c - '0' < 10U || c == '-' || c == '.';
}

}  // namespace

bool ZtAppendEscaped(ZtBuffer& to, ZtPiece text, char quote) {
  if (!ZtIsXmlText(text)) return false;
  std::size_t done = 0;
  for (std::size_t i = 0; i < text.size; ++i) {
    if (text.text[i] > '>') continue;  // so are the bytes beyond ASCII where they are not below 0
    const ZtPiece reference = ReferenceTo(text.text[i], quote);
    if (!reference.text) continue;
    to.Append({text.text + done, i - done});
    to.Append(reference);
    done = i + 1;
  }
  to.Append({text.text + done, text.size - done});
  return true;
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
