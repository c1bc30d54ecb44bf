#include "text/ZtPen.h"

void ZtPen::Begin(std::size_t room) {
  if (m_Writer.initialised == 1) m_Writer.ztDeInitXmlDoc();
  char* const buffer = static_cast<char*>(__malloc(room));
  m_Writer.m_bOutOfMemory = !buffer;
  m_Writer.buffer = m_Writer.m_pAt = buffer;
  m_Writer.m_pEnd = buffer ? buffer + room - 1 : nullptr;
  m_Writer.initialised = 1;
}

// Without memory what does not fit is left out, and nobody gets the text.
[[gnu::cold]] void ZtPen::Grow() {
  if (!m_Writer.buffer || m_Writer.m_pEnd - m_Writer.buffer == kMostSize) return;
  const std::size_t size = Size();
  auto* const larger = static_cast<char*>(__malloc(kMostSize + 1));
  if (!larger) {
    m_Writer.m_bOutOfMemory = m_Writer.m_bCutReported = true;
    return;
  }
  std::memcpy(larger, m_Writer.buffer, size);
  __free(m_Writer.buffer);
  m_Writer.buffer = larger;
  m_Writer.m_pAt = larger + size;
  m_Writer.m_pEnd = larger + kMostSize;
}

[[gnu::cold]] char* ZtPen::Take(bool dropsFirstNewline) {
  if (!m_Writer.buffer) return nullptr;
  const auto room = static_cast<std::size_t>(m_Writer.m_pEnd - m_Writer.buffer);
  const std::size_t dropped = dropsFirstNewline && Size() && *m_Writer.buffer == '\n' ? 1 : 0;
  const std::size_t size = Size() - dropped;
  const char* const text = m_Writer.buffer + dropped;
  *m_Writer.m_pAt = '\0';
  char* taken = room / 2 > size ? static_cast<char*>(__malloc(size + 1)) : nullptr;
  if (!taken) {
    taken = m_Writer.buffer;
    m_Writer.buffer = nullptr;
  }
  if (taken != text) std::memmove(taken, text, size + 1);
  return taken;
}

void ZtPen::Header() {
  m_Writer.headerAdded = 1;
  Append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

[[gnu::cold]] void ZtPen::Open(ZtPaddedPiece name) {
  m_Writer.tagOpen = 1;
  Append("\n<", Prefixed(name), " ");
}

[[gnu::cold]] void ZtPen::Attribute(ZtPiece name, ZtPiece value) {
  if (!Append(" ", name, "=\"", Unquoted{value}, "\" ")) AppendEscaped(name, value);
}

[[gnu::cold]] void ZtPen::Attribute(ZtPaddedPiece name, ZtPaddedPiece suffix, ZtPiece value) {
  Append(" ", name, ":", suffix, "=\"", value, "\" ");
}

[[gnu::cold]] void ZtPen::Empty(ZtPiece name) { Append("\n<", Prefixed(name), "/>"); }

[[gnu::cold]] void ZtPen::AppendEscaped(ZtPiece name, ZtPiece value) {
  if (!m_Writer.buffer) return;
  char* escaped = m_Writer.Escaped(value);
  for (const ZtPiece piece :
       {ZtPiece(" "), name, ZtPiece("=\""), ZtPiece(escaped), ZtPiece("\" ")}) {
    Cut(piece);
  }
  __free(escaped);
}

void ZtPen::Text(ZtPiece text) {
  if (m_Writer.tagOpen == 1) return TextAfterOpenTag(text);
  Append(text.text ? text : ZtPiece(" ", 1));
}

void ZtPen::TextElement(ZtPaddedPiece name, ZtPiece text) {
  m_Writer.tagOpen = 0;
  if (!text.text) text = {" ", 1};
  Append("\n<", Prefixed(name), ">", text, "</", Prefixed(name), ">");
}

[[gnu::cold]] void ZtPen::TextAfterOpenTag(ZtPiece text) {
  m_Writer.tagOpen = 0;
  Cut(ZtPiece(">", 1));
  Text(text);
}

[[gnu::cold]] void ZtPen::Close(bool selfEnd) {
  m_Writer.tagOpen = 0;
  if (m_Writer.m_bCutReported || !m_Writer.buffer) return;  // the blank may be missing
  m_Writer.m_pAt[-1] = selfEnd ? '/' : '>';
  if (selfEnd) Cut(ZtPiece(">", 1));
}

[[gnu::cold]] void ZtPen::Cut(ZtPiece piece) {
  if (piece.size > static_cast<std::size_t>(m_Writer.m_pEnd - m_Writer.m_pAt)) Grow();
  m_Writer.Cut(piece);
}
