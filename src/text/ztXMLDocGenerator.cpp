#include "ztxml/ztXMLDocGenerator.h"

#include "base/ZtBytes.h"
#include "base/ZtLog.h"
#include "text/ZtPen.h"

namespace {
constexpr char kSource[] = "src/ztXMLDocGenerator";
constexpr int kEscapeLine = 880;  // the line under which log readers know this failure
constexpr char kQuote[] = "&quot;";
constexpr std::size_t kQuoteGrowth = sizeof(kQuote) - 2;

// `text`, or nothing.
ZtPiece If(bool wanted, ZtPiece text) { return {text.text, wanted ? text.size : 0}; }
}  // namespace

ZtXMLDocGenerator::ZtXMLDocGenerator() {}

ZtXMLDocGenerator::~ZtXMLDocGenerator() { ztDeInitXmlDoc(); }

// ---- Document -----------------------------------------------------------------------------------

void ZtXMLDocGenerator::ztInitXmlDoc() {
  if (initialised == 1) return;
  ztDeInitXmlDoc();
  ZtPen(*this).Begin(kBufferSize);
  if (buffer) *buffer = '\0';
}

void ZtXMLDocGenerator::ztDeInitXmlDoc() {
  UsePrefix(nullptr);
  __free(buffer);
  buffer = m_pAt = m_pEnd = nullptr;
  initialised = headerAdded = headerAllowed = tagOpen = 0;
  m_bCutReported = false;
}

char* ZtXMLDocGenerator::ztGetXmlDoc() {
  if (buffer) *m_pAt = '\0';
  return buffer;
}

void ZtXMLDocGenerator::ztAddHeader(const char* version, const char* encoding) {
  if (!buffer || headerAdded != 0 || (m_pAt != buffer && headerAllowed != 1)) return;
  m_pAt = buffer;
  // Intended: a caller that names no encoding gets ISO-8859-15, although the documents of the
  // library are in UTF-8.
  Append({"<?xml version=\"", version ? version : "1.0", "\" encoding=\"",
          encoding ? encoding : "ISO-8859-15", "\"?>"});
  headerAdded = 1;
}

void ZtXMLDocGenerator::ztResetHeader() {
  if (!buffer) return;
  headerAdded = headerAllowed = tagOpen = 0;
  UsePrefix(nullptr);
  m_pAt = buffer;
  *m_pAt = '\0';
  m_bCutReported = false;
}

void ZtXMLDocGenerator::ztAddComment(const char* text) {
  // Intended: a comment has a blank after its text and none before it; callers compare the text.
  if (text) Append({"\n<!--", text, " -->"});
}

void ZtXMLDocGenerator::ztSetXmlNamespace(const char* prefix) {
  if (!buffer || m_pAt == m_pEnd) return;
  char* copy = prefix ? __strdup(prefix) : nullptr;
  if (prefix && !copy) m_bOutOfMemory = true;
  UsePrefix(copy);
  m_bPrefixBorrowed = false;
}

void ZtXMLDocGenerator::UsePrefix(ZtPiece prefix) {
  if (!m_bPrefixBorrowed) __free(nsPrefix);
  nsPrefix = const_cast<char*>(prefix.text);
  m_iPrefixSize = prefix.size;
  m_bPrefixBorrowed = true;
}

// What is written at once has its NUL at once, for those who hold the text already.
void ZtXMLDocGenerator::Append(std::initializer_list<ZtPiece> pieces) {
  if (!buffer) return;
  for (const ZtPiece piece : pieces) Cut(piece);
  *m_pAt = '\0';
}

// ---- Start tags ---------------------------------------------------------------------------------

void ZtXMLDocGenerator::Start(const char* lead, const char* name, int leaveOpen) {
  if (!buffer || !name) return;
  tagOpen = leaveOpen;
  Append({lead, Prefix(), If(nsPrefix, ":"), name, leaveOpen == 1 ? " " : ">"});
}

void ZtXMLDocGenerator::ztStartElement(const char* name, int leaveOpen) {
  Start("\n<", name, leaveOpen);
}

void ZtXMLDocGenerator::ztStartElementWithoutNL(const char* name, int leaveOpen) {
  Start("<", name, leaveOpen);
}

void ZtXMLDocGenerator::ztStartElementNs(const char* name, const char* prefix, const char* uri,
                                         int leaveOpen) {
  // Intended: of the operations that start an element only ztStartElementNs closes a start tag that
  // was left open; callers of the others close it themselves.
  if (buffer && tagOpen == 1) {
    Append({">"});
    tagOpen = 0;
  }
  if (!prefix || !uri) return ztStartElement(name, leaveOpen);
  if (!buffer || !name) return;
  tagOpen = leaveOpen;
  Append(
      {"\n<", prefix, ":", name, " xmlns:", prefix, "=\"", uri, "\"", leaveOpen == 1 ? " " : ">"});
}

void ZtXMLDocGenerator::ztStartElementSelfEnding(const char* name) {
  if (name) Append({"\n<", Prefix(), If(nsPrefix, ":"), name, "/>"});
}

// ---- Attributes ---------------------------------------------------------------------------------

// `lead`, `prefix` and, where there is one, a colon, then `name` and the value. What ends an
// attribute also ends the start tag, which is then not open any more.
void ZtXMLDocGenerator::Attribute(ZtPiece lead, ZtPiece prefix, bool colon, const char* name,
                                  const char* value, int selfEnd, int close, ZtPiece blank) {
  if (selfEnd == 1 || close == 1) {
    tagOpen = 0;
    blank = selfEnd == 1 ? "/>" : ">";
  }
  const bool quoted = value && std::strchr(value, '"');
  char* escaped = quoted ? Escaped(value) : nullptr;
  Append({lead, prefix, If(colon, ":"), name, "=\"", quoted ? escaped : value, "\"", blank});
  __free(escaped);
}

void ZtXMLDocGenerator::ztStartAttribute(const char* name, const char* value, int useNs,
                                         int selfEnd, int close) {
  if (!buffer || !name || tagOpen != 1) return;
  const bool prefixed = nsPrefix && useNs == 1;
  Attribute(If(prefixed, " "), If(prefixed, Prefix()), prefixed && *nsPrefix, name, value, selfEnd,
            close, nullptr);
}

void ZtXMLDocGenerator::ztStartAttributeNs(const char* name, const char* value, const char* prefix,
                                           int selfEnd, int close) {
  if (!prefix) return ztStartAttribute(name, value, 0, selfEnd, close);
  if (!buffer || !name || tagOpen != 1) return;
  Attribute(" ", prefix, true, name, value, selfEnd, close, " ");
}

void ZtXMLDocGenerator::ztAddNameSpacePrefixToXml(const char* name, const char* value,
                                                  const char* suffix, int selfEnd, int close) {
  if (!buffer || !name) return;
  Attribute(" ", name, suffix != nullptr, suffix ? suffix : "", value, selfEnd, close, " ");
}

// ---- Text and end tags --------------------------------------------------------------------------

void ZtXMLDocGenerator::ztXmlSetData(const char* text) {
  if (!buffer) return;
  ZtPen(*this).Text(text);
  *m_pAt = '\0';
}

void ZtXMLDocGenerator::ztEndXmlElement(const char* name) {
  if (!buffer || !name) return;
  tagOpen = 0;
  Append({"</", Prefix(), If(nsPrefix, ":"), name, ">"});
}

// Intended: the operation ztEndXmlElementNs puts the end tag on a line of its own, where
// ztEndXmlElement writes it directly after the content; peers compare the text.
void ZtXMLDocGenerator::ztEndXmlElementNs(const char* name, const char* prefix) {
  if (!buffer || !name) return;
  if (!prefix) prefix = nsPrefix;
  Append({"\n</", prefix, If(prefix, ":"), name, ">"});
  tagOpen = 0;
}

// ---- Appending ----------------------------------------------------------------------------------

// Intended: of a value only the double quote is escaped, and of an element's text nothing; callers
// escape the rest themselves.
char* ZtXMLDocGenerator::Escaped(ZtPiece value) {
  char* escaped = escapeString(value.text);
  if (!escaped) m_bOutOfMemory = true;
  return escaped;
}

// Intended: a document is cut at 32767 characters with a line in the log, instead of failing;
// callers keep below that.
void ZtXMLDocGenerator::Cut(ZtPiece piece) {
  if (!buffer) return;
  const auto room = static_cast<std::size_t>(m_pEnd - m_pAt);
  if (piece.size > room && !m_bCutReported) {
    m_bCutReported = true;
    ZtLog(kZtLogError, kSource)("ZtXMLDocGenerator :: document cut at 32767 characters");
  }
  m_pAt = ZtCopy(m_pAt, {piece.text, piece.size < room ? piece.size : room});
}

char* ZtXMLDocGenerator::escapeString(const char* text) {
  if (!text) return nullptr;
  std::size_t size = 1;
  for (const char* at = text; *at; ++at) size += *at == '"' ? 1 + kQuoteGrowth : 1;
  auto* escaped = static_cast<char*>(__malloc(size));
  if (!escaped) {
    ZtLog(kZtLogTrace, kSource, kEscapeLine)("ZtXMLDocGenerator :: escapeString malloc failed");
    return nullptr;
  }
  char* to = escaped;
  while (const char* quote = __strchr(text, '"')) {
    const auto piece = static_cast<std::size_t>(quote - text);
    std::memcpy(to, text, piece);
    std::memcpy(to + piece, kQuote, sizeof(kQuote) - 1);
    to += piece + sizeof(kQuote) - 1;
    text = quote + 1;
  }
  std::memcpy(to, text, __strlen(text) + 1);
  return escaped;
}
