#include "ztXMLDocGenerator.h"

#include "base/ZtBytes.h"
#include "base/ZtLog.h"

namespace {
constexpr char kSource[] = "src/ztXMLDocGenerator";
constexpr int kEscapeLine = 880;  // the line under which log readers know this failure
constexpr char kQuote[] = "&quot;";
constexpr std::size_t kQuoteGrowth = sizeof(kQuote) - 2;

// Intended: an absent text is written as one blank, where an empty element could be expected; peers
// compare the text.
ZtPiece OrBlank(ZtPiece text) { return text.text ? text : ZtPiece(" ", 1); }
}  // namespace

ZtXMLDocGenerator::ZtXMLDocGenerator()
    : initialised(0),
      headerAdded(0),
      headerAllowed(0),
      tagOpen(0),
      buffer(nullptr),
      nsPrefix(nullptr),
      m_pAt(nullptr),
      m_pEnd(nullptr),
      m_iPrefixSize(0),
      m_bPrefixBorrowed(false),
      m_bCutReported(false),
      m_bOutOfMemory(false) {}

ZtXMLDocGenerator::~ZtXMLDocGenerator() { ztDeInitXmlDoc(); }

// ---- Document -----------------------------------------------------------------------------------

void ZtXMLDocGenerator::ztInitXmlDoc() {
  if (initialised == 1) return;
  ztDeInitXmlDoc();
  buffer = static_cast<char*>(__malloc(kBufferSize));
  m_bOutOfMemory = !buffer;
  m_pAt = buffer;
  m_pEnd = buffer ? buffer + kBufferSize - 1 : nullptr;
  if (buffer) *buffer = '\0';
  initialised = 1;
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
  if (!buffer || !text) return;
  // Intended: a comment has a blank after its text and none before it; callers compare the text.
  Append({"\n<!--", text, " -->"});
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

// ---- Start tags ---------------------------------------------------------------------------------

// `lead`, the name with the current prefix, `tail`.
void ZtXMLDocGenerator::AppendName(ZtPiece lead, ZtPiece name, ZtPiece tail) {
  Append({lead, {nsPrefix, m_iPrefixSize}, {":", nsPrefix ? 1U : 0U}, name, tail});
}

// Intended: the name in a start tag is followed by a blank, and every attribute stands between two
// blanks, so that there are two before each attribute; peers compare documents byte for byte.
void ZtXMLDocGenerator::Start(ZtPiece name, int leaveOpen) {
  if (!buffer || !name.text) return;
  tagOpen = leaveOpen;
  if (leaveOpen == 1) {
    AppendName("\n<", name, " ");
  } else {
    AppendName("\n<", name, ">");
  }
}

void ZtXMLDocGenerator::ztStartElement(const char* name, int leaveOpen) { Start(name, leaveOpen); }

void ZtXMLDocGenerator::ztStartElementWithoutNL(const char* name, int leaveOpen) {
  if (!buffer || !name) return;
  tagOpen = leaveOpen;
  AppendName("<", name, ZtPiece(leaveOpen == 1 ? " " : ">", 1));
}

void ZtXMLDocGenerator::ztStartElementNs(const char* name, const char* prefix, const char* uri,
                                         int leaveOpen) {
  if (!buffer) return;
  // Intended: of the operations that start an element only ztStartElementNs closes a start tag that
  // was left open; callers of the others close it themselves.
  if (tagOpen == 1) {
    Append({">"});
    tagOpen = 0;
  }
  if (!name) return;
  if (!prefix || !uri) {
    ztStartElement(name, leaveOpen);
    return;
  }
  tagOpen = leaveOpen;
  const ZtPiece own(prefix);
  Append(
      {"\n<", own, ":", name, " xmlns:", own, "=\"", uri, "\"", {leaveOpen == 1 ? " " : ">", 1}});
}

void ZtXMLDocGenerator::ztStartElementSelfEnding(const char* name) {
  if (buffer && name) AppendName("\n<", name, "/>");
}

// ---- Attributes ---------------------------------------------------------------------------------

// What ends an attribute also ends the start tag, which is then not open any more.
ZtPiece ZtXMLDocGenerator::EndOfAttribute(int selfEnd, int close, bool blank) {
  if (selfEnd != 1 && close != 1) return {" ", blank ? 1U : 0U};
  tagOpen = 0;
  return selfEnd == 1 ? ZtPiece("/>", 2) : ZtPiece(">", 1);
}

// The value as it is written; `escaped` is to be freed after its use. Intended: of a value only the
// double quote is escaped, and of an element's text nothing; callers escape the rest themselves.
ZtPiece ZtXMLDocGenerator::Value(ZtPiece value, char*& escaped) {
  if (!value.size || !std::memchr(value.text, '"', value.size)) return value;
  escaped = escapeString(value.text);
  if (!escaped) m_bOutOfMemory = true;
  return escaped;
}

// `name`, in its parts, value and end of an attribute.
void ZtXMLDocGenerator::AppendAttribute(std::initializer_list<ZtPiece> name, ZtPiece value,
                                        ZtPiece end) {
  char* escaped = nullptr;
  const ZtPiece written = Value(value, escaped);
  Append(name);
  Append({"=\"", written, "\"", end});
  __free(escaped);
}

void ZtXMLDocGenerator::ztStartAttribute(const char* name, const char* value, int useNs,
                                         int selfEnd, int close) {
  if (!buffer || !name || tagOpen != 1) return;
  const bool prefixed = nsPrefix && useNs == 1;
  AppendAttribute({{" ", prefixed ? 1U : 0U},
                   {nsPrefix, prefixed ? m_iPrefixSize : 0},
                   {":", prefixed && *nsPrefix ? 1U : 0U},
                   name},
                  value, EndOfAttribute(selfEnd, close, false));
}

void ZtXMLDocGenerator::ztStartAttributeNs(const char* name, const char* value, const char* prefix,
                                           int selfEnd, int close) {
  if (!prefix) {
    ztStartAttribute(name, value, 0, selfEnd, close);
    return;
  }
  if (!buffer || !name || tagOpen != 1) return;
  AppendAttribute({" ", prefix, ":", name}, value, EndOfAttribute(selfEnd, close, true));
}

void ZtXMLDocGenerator::Attribute(ZtPiece name, ZtPiece value, ZtPiece suffix, int selfEnd,
                                  int close) {
  if (!buffer || !name.text) return;
  AppendAttribute({" ", name, {":", suffix.text ? 1U : 0U}, suffix}, value,
                  EndOfAttribute(selfEnd, close, true));
}

// The attribute's last blank makes room for it, unless the document was cut before.
void ZtXMLDocGenerator::CloseTag(bool selfEnd) {
  if (!buffer) return;
  tagOpen = 0;
  if (m_bCutReported) return;
  m_pAt[-1] = selfEnd ? '/' : '>';
  if (selfEnd) Append({">"});
}

void ZtXMLDocGenerator::ztAddNameSpacePrefixToXml(const char* name, const char* value,
                                                  const char* suffix, int selfEnd, int close) {
  Attribute(name, value, suffix, selfEnd, close);
}

// ---- Text and end tags --------------------------------------------------------------------------

void ZtXMLDocGenerator::ztXmlSetData(const char* text) { Text(text); }

void ZtXMLDocGenerator::Text(ZtPiece text) {
  if (!buffer) return;
  Append({{">", tagOpen == 1 ? 1U : 0U}, OrBlank(text)});
  tagOpen = 0;
}

void ZtXMLDocGenerator::End(ZtPiece name) {
  if (!buffer || !name.text) return;
  AppendName("</", name, ">");
  tagOpen = 0;
}

// An element with a text and nothing else.
void ZtXMLDocGenerator::TextElement(ZtPiece name, ZtPiece text) {
  Start(name, 0);
  Text(text);
  End(name);
}

void ZtXMLDocGenerator::ztEndXmlElement(const char* name) { End(name); }

// Intended: the operation ztEndXmlElementNs puts the end tag on a line of its own, where
// ztEndXmlElement writes it directly after the content; peers compare the text.
void ZtXMLDocGenerator::ztEndXmlElementNs(const char* name, const char* prefix) {
  if (!buffer || !name) return;
  if (!prefix) prefix = nsPrefix;
  Append({"\n</", prefix, {":", prefix ? 1U : 0U}, name, ">"});
  tagOpen = 0;
}

// ---- Appending ----------------------------------------------------------------------------------

// Up to the end of the buffer. Intended: a document is cut at 32767 characters with a line in the
// log, instead of failing; callers keep below that.
void ZtXMLDocGenerator::Append(std::initializer_list<ZtPiece> pieces) {
  for (const ZtPiece& piece : pieces) {
    const auto room = static_cast<std::size_t>(m_pEnd - m_pAt);
    const std::size_t size = piece.size < room ? piece.size : room;
    if (size < piece.size && !m_bCutReported) {
      m_bCutReported = true;
      ZtLog(kZtLogError, kSource)("ZtXMLDocGenerator :: document cut at 32767 characters");
    }
    m_pAt = ZtCopy(m_pAt, {piece.text, size});
  }
  *m_pAt = '\0';  // for those who hold the text already
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
