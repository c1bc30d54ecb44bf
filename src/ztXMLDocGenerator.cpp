#include "ztXMLDocGenerator.h"

#include "base/ZtLog.h"

namespace {
constexpr char kSource[] = "src/ztXMLDocGenerator";
constexpr int kEscapeLine = 880;  // the line under which log readers know this failure
constexpr char kQuote[] = "&quot;";
constexpr std::size_t kQuoteGrowth = sizeof(kQuote) - 2;
}  // namespace

ZtXMLDocGenerator::ZtXMLDocGenerator()
    : initialised(0),
      headerAdded(0),
      headerAllowed(0),
      tagOpen(0),
      buffer(nullptr),
      nsPrefix(nullptr),
      m_iLength(0),
      m_bCutReported(false),
      m_bOutOfMemory(false) {}

ZtXMLDocGenerator::~ZtXMLDocGenerator() {
  __free(buffer);
  __free(nsPrefix);
}

// ---- Document -----------------------------------------------------------------------------------

void ZtXMLDocGenerator::ztInitXmlDoc() {
  if (initialised == 1) return;
  ztDeInitXmlDoc();
  buffer = static_cast<char*>(__calloc(1, kBufferSize));
  m_bOutOfMemory = !buffer;
  initialised = 1;
}

void ZtXMLDocGenerator::ztDeInitXmlDoc() {
  __free(buffer);
  __free(nsPrefix);
  buffer = nsPrefix = nullptr;
  initialised = headerAdded = headerAllowed = tagOpen = 0;
  m_iLength = 0;
  m_bCutReported = false;
}

char* ZtXMLDocGenerator::ztGetXmlDoc() { return buffer; }

void ZtXMLDocGenerator::ztAddHeader(const char* version, const char* encoding) {
  if (!buffer || headerAdded != 0 || (m_iLength != 0 && headerAllowed != 1)) return;
  m_iLength = 0;
  Append("<?xml version=\"");
  Append(version ? version : "1.0");
  Append("\" encoding=\"");
  Append(encoding ? encoding : "ISO-8859-15");
  Append("\"?>");
  headerAdded = 1;
}

void ZtXMLDocGenerator::ztResetHeader() {
  if (!buffer) return;
  headerAdded = headerAllowed = tagOpen = 0;
  __free(nsPrefix);
  nsPrefix = nullptr;
  __memset(buffer, 0, kBufferSize);
  m_iLength = 0;
  m_bCutReported = false;
}

void ZtXMLDocGenerator::ztAddComment(const char* text) {
  if (!buffer || !text) return;
  Append("\n<!--");
  Append(text);
  Append(" -->");
}

void ZtXMLDocGenerator::ztSetXmlNamespace(const char* prefix) {
  if (!buffer || m_iLength == kBufferSize - 1) return;
  char* copy = prefix ? __strdup(prefix) : nullptr;
  if (prefix && !copy) m_bOutOfMemory = true;
  __free(nsPrefix);
  nsPrefix = copy;
}

// ---- Start tags ---------------------------------------------------------------------------------

void ZtXMLDocGenerator::Start(const char* lead, const char* name, int leaveOpen) {
  if (!buffer || !name) return;
  tagOpen = leaveOpen;
  Append(lead);
  AppendPrefix();
  Append(name);
  Append(leaveOpen == 1 ? " " : ">", 1);
}

void ZtXMLDocGenerator::ztStartElement(const char* name, int leaveOpen) {
  Start("\n<", name, leaveOpen);
}

void ZtXMLDocGenerator::ztStartElementWithoutNL(const char* name, int leaveOpen) {
  Start("<", name, leaveOpen);
}

void ZtXMLDocGenerator::ztStartElementNs(const char* name, const char* prefix, const char* uri,
                                         int leaveOpen) {
  if (!buffer) return;
  if (tagOpen == 1) {
    Append(">", 1);
    tagOpen = 0;
  }
  if (!name) return;
  if (!prefix || !uri) {
    ztStartElement(name, leaveOpen);
    return;
  }
  tagOpen = leaveOpen;
  Append("\n<");
  Append(prefix);
  Append(":", 1);
  Append(name);
  Append(" xmlns:");
  Append(prefix);
  Append("=\"");
  Append(uri);
  Append("\"", 1);
  Append(leaveOpen == 1 ? " " : ">", 1);
}

void ZtXMLDocGenerator::ztStartElementSelfEnding(const char* name) {
  if (!buffer || !name) return;
  Append("\n<");
  AppendPrefix();
  Append(name);
  Append("/>");
}

// ---- Attributes ---------------------------------------------------------------------------------

// What ends an attribute also ends the start tag, which is then not open any more.
void ZtXMLDocGenerator::EndAttribute(int selfEnd, int close, bool blank) {
  if (selfEnd == 1) {
    Append("/>");
  } else if (close == 1) {
    Append(">", 1);
  } else {
    if (blank) Append(" ", 1);
    return;
  }
  tagOpen = 0;
}

void ZtXMLDocGenerator::ztStartAttribute(const char* name, const char* value, int useNs,
                                         int selfEnd, int close) {
  if (!buffer || !name || tagOpen != 1) return;
  if (nsPrefix && useNs == 1) {
    Append(" ", 1);
    Append(nsPrefix);
    if (*nsPrefix) Append(":", 1);
  }
  Append(name);
  AppendValue(value);
  EndAttribute(selfEnd, close, false);
}

void ZtXMLDocGenerator::ztStartAttributeNs(const char* name, const char* value, const char* prefix,
                                           int selfEnd, int close) {
  if (!prefix) {
    ztStartAttribute(name, value, 0, selfEnd, close);
    return;
  }
  if (!buffer || !name || tagOpen != 1) return;
  Append(" ", 1);
  Append(prefix);
  Append(":", 1);
  Append(name);
  AppendValue(value);
  EndAttribute(selfEnd, close, true);
}

void ZtXMLDocGenerator::ztAddNameSpacePrefixToXml(const char* name, const char* value,
                                                  const char* suffix, int selfEnd, int close) {
  if (!buffer || !name) return;
  Append(" ", 1);
  Append(name);
  if (suffix) {
    Append(":", 1);
    Append(suffix);
  }
  AppendValue(value);
  EndAttribute(selfEnd, close, true);
}

// ---- Text and end tags --------------------------------------------------------------------------

void ZtXMLDocGenerator::ztXmlSetData(const char* text) {
  if (!buffer) return;
  if (tagOpen == 1) Append(">", 1);
  Append(text ? text : " ");
  tagOpen = 0;
}

void ZtXMLDocGenerator::ztEndXmlElement(const char* name) {
  if (!buffer || !name) return;
  Append("</");
  AppendPrefix();
  Append(name);
  Append(">", 1);
  tagOpen = 0;
}

void ZtXMLDocGenerator::ztEndXmlElementNs(const char* name, const char* prefix) {
  if (!buffer || !name) return;
  if (!prefix) prefix = nsPrefix;
  Append("\n</");
  if (prefix) {
    Append(prefix);
    Append(":", 1);
  }
  Append(name);
  Append(">", 1);
  tagOpen = 0;
}

// ---- Appending ----------------------------------------------------------------------------------

void ZtXMLDocGenerator::Append(const char* text) { Append(text, __strlen(text)); }

void ZtXMLDocGenerator::Append(const char* text, std::size_t size) {
  const std::size_t room = kBufferSize - 1 - m_iLength;
  if (size > room) {
    size = room;
    if (!m_bCutReported) {
      m_bCutReported = true;
      ZtLog(kZtLogError, kSource)("ZtXMLDocGenerator :: document cut at 32767 characters");
    }
  }
  std::memcpy(buffer + m_iLength, text, size);
  m_iLength += size;
  buffer[m_iLength] = '\0';
}

// A full document needs no prefix: a long one is not gone through for each tag that is cut off.
void ZtXMLDocGenerator::AppendPrefix() {
  if (!nsPrefix || m_iLength == kBufferSize - 1) return;
  Append(nsPrefix);
  Append(":", 1);
}

void ZtXMLDocGenerator::AppendValue(const char* value) {
  Append("=\"");
  if (value && __strchr(value, '"')) {
    char* escaped = escapeString(value);
    if (escaped) {
      Append(escaped);
    } else {
      m_bOutOfMemory = true;
    }
    __free(escaped);
  } else if (value) {
    Append(value);
  }
  Append("\"", 1);
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
