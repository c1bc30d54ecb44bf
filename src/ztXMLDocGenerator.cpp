#include "ztXMLDocGenerator.h"

#include <cstdint>

#include "base/ZtLog.h"

namespace {
constexpr char kSource[] = "src/ztXMLDocGenerator";
constexpr int kEscapeLine = 880;  // the line under which log readers know this failure
constexpr char kQuote[] = "&quot;";
constexpr std::size_t kQuoteGrowth = sizeof(kQuote) - 2;

// Parts of the text: literals, of which the compiler knows the sizes, and pieces.
template <std::size_t N>
constexpr std::size_t SizeOf(const char (&)[N]) {
  return N - 1;
}
constexpr std::size_t SizeOf(const ZtPiece& piece) { return piece.size; }

template <std::size_t N>
char* Copy(char* to, const char (&literal)[N]) {
  std::memcpy(to, literal, N - 1);
  return to + N - 1;
}
// Most pieces are short: a call would cost more than the copy.
char* CopyLong(char* to, const char* from, std::size_t size) {
  if (size > 32) {
    std::memcpy(to, from, size);
  } else {
    std::memcpy(to, from, 16);
    std::memcpy(to + size - 16, from + size - 16, 16);
  }
  return to + size;
}
inline __attribute__((always_inline)) char* Copy(char* to, const ZtPiece& piece) {
  const char* from = piece.text;
  const std::size_t size = piece.size;
  if (size > 16) return CopyLong(to, from, size);
  if (size >= 8) {
    std::memcpy(to, from, 8);
    std::memcpy(to + size - 8, from + size - 8, 8);
  } else if (size >= 4) {
    std::memcpy(to, from, 4);
    std::memcpy(to + size - 4, from + size - 4, 4);
  } else if (size) {
    to[0] = from[0];
    to[size / 2] = from[size / 2];
    to[size - 1] = from[size - 1];
  }
  return to + size;
}

// Whether one of the bytes in the word is a double quote.
template <class Word>
bool HasQuote(Word word) {
  constexpr Word kOnes = static_cast<Word>(~Word{0}) / 255;
  const Word other = word ^ (kOnes * '"');
  return ((other - kOnes) & ~other & (kOnes * 128)) != 0;
}

// Copies a value of a word or more; false when it holds a double quote.
template <class Word>
bool CopyWords(char* to, const char* from, std::size_t size) {
  const std::size_t last = size - sizeof(Word);
  for (std::size_t i = 0;; i += sizeof(Word)) {
    if (i > last) i = last;
    Word word;
    std::memcpy(&word, from + i, sizeof(word));
    if (HasQuote(word)) return false;
    std::memcpy(to + i, &word, sizeof(word));
    if (i == last) return true;
  }
}

bool CopyUnquoted(char* to, const ZtPiece& value) {
  const char* from = value.text;
  if (value.size >= sizeof(std::uint64_t)) return CopyWords<std::uint64_t>(to, from, value.size);
  if (value.size >= sizeof(std::uint32_t)) return CopyWords<std::uint32_t>(to, from, value.size);
  for (std::size_t i = 0; i < value.size; ++i) {
    if (from[i] == '"') return false;
    to[i] = from[i];
  }
  return true;
}

// An absent text is written as a blank.
ZtPiece OrBlank(const ZtPiece& text) { return text.text ? text : ZtPiece(" ", 1); }
}  // namespace

ZtXMLDocGenerator::ZtXMLDocGenerator()
    : initialised(0),
      headerAdded(0),
      headerAllowed(0),
      tagOpen(0),
      buffer(nullptr),
      nsPrefix(nullptr),
      m_iLength(0),
      m_iPrefixSize(0),
      m_bCutReported(false),
      m_bOutOfMemory(false) {}

ZtXMLDocGenerator::~ZtXMLDocGenerator() {
  __free(buffer);
  __free(nsPrefix);
}

// Appends the parts up to the end of the buffer.
template <class... Parts>
void ZtXMLDocGenerator::Append(const Parts&... parts) {
  (AppendCut(parts), ...);
}

// The same for what is written often: all at once when they fit.
template <class... Parts>
void ZtXMLDocGenerator::AppendFast(const Parts&... parts) {
  const std::size_t size = (SizeOf(parts) + ...);
  if (size > kBufferSize - 1 - m_iLength) return Append(parts...);
  char* to = buffer + m_iLength;
  ((to = Copy(to, parts)), ...);
  m_iLength += size;
}

// ---- Document -----------------------------------------------------------------------------------

void ZtXMLDocGenerator::ztInitXmlDoc() {
  if (initialised == 1) return;
  ztDeInitXmlDoc();
  buffer = static_cast<char*>(__malloc(kBufferSize));
  m_bOutOfMemory = !buffer;
  initialised = 1;
}

void ZtXMLDocGenerator::ztDeInitXmlDoc() {
  __free(buffer);
  __free(nsPrefix);
  buffer = nsPrefix = nullptr;
  initialised = headerAdded = headerAllowed = tagOpen = 0;
  m_iLength = m_iPrefixSize = 0;
  m_bCutReported = false;
}

char* ZtXMLDocGenerator::ztGetXmlDoc() {
  if (buffer) buffer[m_iLength] = '\0';
  return buffer;
}

void ZtXMLDocGenerator::ztAddHeader(const char* version, const char* encoding) {
  if (!buffer || headerAdded != 0 || (m_iLength != 0 && headerAllowed != 1)) return;
  m_iLength = 0;
  Append("<?xml version=\"", ZtPiece(version ? version : "1.0"), "\" encoding=\"",
         ZtPiece(encoding ? encoding : "ISO-8859-15"), "\"?>");
  headerAdded = 1;
}

void ZtXMLDocGenerator::ztResetHeader() {
  if (!buffer) return;
  headerAdded = headerAllowed = tagOpen = 0;
  __free(nsPrefix);
  nsPrefix = nullptr;
  m_iLength = m_iPrefixSize = 0;
  m_bCutReported = false;
}

void ZtXMLDocGenerator::ztAddComment(const char* text) {
  if (!buffer || !text) return;
  Append("\n<!--", ZtPiece(text), " -->");
}

void ZtXMLDocGenerator::ztSetXmlNamespace(const char* prefix) {
  if (!buffer || m_iLength == kBufferSize - 1) return;
  char* copy = prefix ? __strdup(prefix) : nullptr;
  if (prefix && !copy) m_bOutOfMemory = true;
  m_iPrefixSize = copy ? __strlen(copy) : 0;
  __free(nsPrefix);
  nsPrefix = copy;
}

// ---- Start tags ---------------------------------------------------------------------------------

// `lead`, the name with the current prefix, `tail`.
template <class Lead, class Tail>
void ZtXMLDocGenerator::AppendName(const Lead& lead, const ZtPiece& name, const Tail& tail) {
  if (nsPrefix) {
    AppendFast(lead, ZtPiece(nsPrefix, m_iPrefixSize), ":", name, tail);
  } else {
    AppendFast(lead, name, tail);
  }
}

void ZtXMLDocGenerator::Start(const ZtPiece& name, int leaveOpen) {
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
  if (tagOpen == 1) {
    Append(">");
    tagOpen = 0;
  }
  if (!name) return;
  if (!prefix || !uri) {
    ztStartElement(name, leaveOpen);
    return;
  }
  tagOpen = leaveOpen;
  const ZtPiece own(prefix);
  Append("\n<", own, ":", ZtPiece(name), " xmlns:", own, "=\"", ZtPiece(uri), "\"",
         ZtPiece(leaveOpen == 1 ? " " : ">", 1));
}

void ZtXMLDocGenerator::StartEmpty(const ZtPiece& name) {
  if (buffer && name.text) AppendName("\n<", name, "/>");
}

void ZtXMLDocGenerator::ztStartElementSelfEnding(const char* name) { StartEmpty(name); }

// ---- Attributes ---------------------------------------------------------------------------------

// What ends an attribute also ends the start tag, which is then not open any more.
ZtPiece ZtXMLDocGenerator::EndOfAttribute(int selfEnd, int close, bool blank) {
  if (selfEnd != 1 && close != 1) return {" ", blank ? 1U : 0U};
  tagOpen = 0;
  return selfEnd == 1 ? ZtPiece("/>", 2) : ZtPiece(">", 1);
}

// The value as it is written; `escaped` is to be freed behind its use.
ZtPiece ZtXMLDocGenerator::Value(const ZtPiece& value, char*& escaped) {
  if (!value.size || !std::memchr(value.text, '"', value.size)) return value;
  escaped = escapeString(value.text);
  if (!escaped) m_bOutOfMemory = true;
  return escaped;
}

// `lead`, the attribute's name, value and end.
template <class... Lead>
void ZtXMLDocGenerator::AppendAttribute(const ZtPiece& value, const ZtPiece& end,
                                        const Lead&... lead) {
  char* escaped = nullptr;
  Append(lead..., "=\"", Value(value, escaped), "\"", end);
  __free(escaped);
}

void ZtXMLDocGenerator::ztStartAttribute(const char* name, const char* value, int useNs,
                                         int selfEnd, int close) {
  if (!buffer || !name || tagOpen != 1) return;
  const bool prefixed = nsPrefix && useNs == 1;
  AppendAttribute(value, EndOfAttribute(selfEnd, close, false), ZtPiece(" ", prefixed ? 1U : 0U),
                  ZtPiece(nsPrefix, prefixed ? m_iPrefixSize : 0),
                  ZtPiece(":", prefixed && *nsPrefix ? 1U : 0U), ZtPiece(name));
}

void ZtXMLDocGenerator::ztStartAttributeNs(const char* name, const char* value, const char* prefix,
                                           int selfEnd, int close) {
  if (!prefix) {
    ztStartAttribute(name, value, 0, selfEnd, close);
    return;
  }
  if (!buffer || !name || tagOpen != 1) return;
  AppendAttribute(value, EndOfAttribute(selfEnd, close, true), " ", ZtPiece(prefix), ":",
                  ZtPiece(name));
}

void ZtXMLDocGenerator::Attribute(const ZtPiece& name, const ZtPiece& value, const ZtPiece& suffix,
                                  int selfEnd, int close) {
  if (!buffer || !name.text) return;
  const ZtPiece end = EndOfAttribute(selfEnd, close, true);
  if (suffix.text) {
    AppendAttribute(value, end, " ", name, ":", suffix);
  } else {
    AppendAttribute(value, end, " ", name);
  }
}

void ZtXMLDocGenerator::Attribute(ZtPiece name, ZtPiece value) {
  const std::size_t size = sizeof(" =\"\" ") - 1 + name.size + value.size;
  if (buffer && size < kBufferSize - m_iLength) {
    char* const at = Copy(Copy(Copy(buffer + m_iLength, " "), name), "=\"");
    if (CopyUnquoted(at, value)) {
      Copy(at + value.size, "\" ");
      m_iLength += size;
      return;
    }
  }
  Attribute(name, value, nullptr, 0, 0);
}

// The attribute's last blank makes room for it, unless the document was cut before.
void ZtXMLDocGenerator::CloseTag(bool selfEnd) {
  if (!buffer) return;
  tagOpen = 0;
  if (m_bCutReported) return;
  buffer[m_iLength - 1] = selfEnd ? '/' : '>';
  if (selfEnd) Append(">");
}

void ZtXMLDocGenerator::ztAddNameSpacePrefixToXml(const char* name, const char* value,
                                                  const char* suffix, int selfEnd, int close) {
  Attribute(name, value, suffix, selfEnd, close);
}

// ---- Text and end tags --------------------------------------------------------------------------

void ZtXMLDocGenerator::ztXmlSetData(const char* text) { Text(text); }

void ZtXMLDocGenerator::Text(const ZtPiece& text) {
  if (!buffer) return;
  AppendFast(ZtPiece(">", tagOpen == 1 ? 1U : 0U), OrBlank(text));
  tagOpen = 0;
}

void ZtXMLDocGenerator::End(const ZtPiece& name) {
  if (!buffer || !name.text) return;
  AppendName("</", name, ">");
  tagOpen = 0;
}

// An element with a text and nothing else.
void ZtXMLDocGenerator::TextElement(const ZtPiece& name, const ZtPiece& text) {
  if (!buffer || !name.text) return;
  if (nsPrefix) {
    AppendName("\n<", name, ">");
    AppendFast(OrBlank(text));
    AppendName("</", name, ">");
  } else {
    AppendFast("\n<", name, ">", OrBlank(text), "</", name, ">");
  }
  tagOpen = 0;
}

void ZtXMLDocGenerator::ztEndXmlElement(const char* name) { End(name); }

void ZtXMLDocGenerator::ztEndXmlElementNs(const char* name, const char* prefix) {
  if (!buffer || !name) return;
  if (!prefix) prefix = nsPrefix;
  Append("\n</", ZtPiece(prefix), ZtPiece(":", prefix ? 1U : 0U), ZtPiece(name), ">");
  tagOpen = 0;
}

// ---- Appending ----------------------------------------------------------------------------------

void ZtXMLDocGenerator::AppendCut(const ZtPiece& piece) {
  const std::size_t room = kBufferSize - 1 - m_iLength;
  const std::size_t size = piece.size < room ? piece.size : room;
  if (size < piece.size && !m_bCutReported) {
    m_bCutReported = true;
    ZtLog(kZtLogError, kSource)("ZtXMLDocGenerator :: document cut at 32767 characters");
  }
  m_iLength = static_cast<std::size_t>(Copy(buffer + m_iLength, {piece.text, size}) - buffer);
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
