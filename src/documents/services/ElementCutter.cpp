#include "documents/services/ElementCutter.h"

#include <cstring>

#include "ztxml/ztPlatform.h"

namespace {

constexpr std::size_t kLeastSpans = 10;

// Whether the tag's name at `text` is `name` with any prefix.
bool IsNamed(const char* text, const char* name, std::size_t size) {
  if (*text == '!' || *text == '?') return false;
  const std::size_t whole = std::strcspn(text, " \t\r\n/>");
  const auto* colon = static_cast<const char*>(std::memchr(text, ':', whole));
  const char* local = colon ? colon + 1 : text;
  return static_cast<std::size_t>(text + whole - local) == size &&
         std::memcmp(local, name, size) == 0;
}

}  // namespace

ZtElementCutter::~ZtElementCutter() {
  __free(m_pSpans);
  __free(m_pTexts);
}

ZtElementCutter::Span* ZtElementCutter::Append() {
  if (m_iSpans == m_iCapacity) {
    const std::size_t capacity = m_iCapacity ? 2 * m_iCapacity : kLeastSpans;
    auto* spans = static_cast<Span*>(__malloc(capacity * sizeof(Span)));
    if (!spans) return nullptr;
    if (m_iSpans) std::memcpy(spans, m_pSpans, m_iSpans * sizeof(Span));
    __free(m_pSpans);
    m_pSpans = spans;
    m_iCapacity = capacity;
  }
  return &m_pSpans[m_iSpans++];
}

// Tags are what the parser takes for tags: all from a '<' to the next '>'.
bool ZtElementCutter::Find(const char* text, const char* name) {
  const std::size_t size = __strlen(name);
  std::size_t open = 0;  // the innermost open element, counted from 1
  const char* tag = __strstr(text, name) ? __strchr(text, '<') : nullptr;
  while (const char* close = tag ? __strchr(tag, '>') : nullptr) {
    const bool atEnd = tag[1] == '/';
    if (!IsNamed(tag + 1 + atEnd, name, size)) {
      tag = __strchr(close, '<');
      continue;
    }
    const auto end = static_cast<std::size_t>(close + 1 - text);
    if (!atEnd) {
      Span* span = Append();
      if (!span) return false;
      const bool empty = close[-1] == '/';
      *span = {static_cast<std::size_t>(tag - text), empty ? end : 0, open};
      if (!empty) open = m_iSpans;
    } else if (open) {
      // Elements that were found inside this one are cut out as part of it.
      m_iSpans = open;
      m_pSpans[open - 1].end = end;
      open = m_pSpans[open - 1].outer;
    }
    tag = __strchr(close, '<');
  }
  return true;
}

ZtElementCutter::Result ZtElementCutter::Cut(char* text, const char* name) {
  if (!Find(text, name)) return kNoTable;
  std::size_t size = 0;
  for (std::size_t i = 0; i < m_iSpans; ++i) {
    const Span& span = m_pSpans[i];
    if (span.end) size += span.end - span.begin + 1;
  }
  if (size == 0) return kCut;
  m_pTexts = static_cast<char*>(__malloc(size));
  if (!m_pTexts) return kNoCopy;
  char* copy = m_pTexts;
  std::size_t kept = 0;  // bytes kept of the text so far
  std::size_t from = 0;  // where the part not yet copied begins
  for (std::size_t i = 0; i < m_iSpans; ++i) {
    const Span& span = m_pSpans[i];
    if (!span.end) continue;
    std::memcpy(copy, text + span.begin, span.end - span.begin);
    copy += span.end - span.begin;
    *copy++ = '\0';
    std::memmove(text + kept, text + from, span.begin - from);
    kept += span.begin - from;
    from = span.end;
    ++m_iCount;
  }
  std::memmove(text + kept, text + from, __strlen(text + from) + 1);
  return kCut;
}
