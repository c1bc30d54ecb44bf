#include "base/ZtLog.h"
#include "text/TagScanner.h"
#include "ztxml/XmlDecoder.h"
#include "ztxml/ztPlatform.h"

namespace {
constexpr int kMostDelimiters = 32;

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

const char* SkipSpace(const char* text) {
  while (IsSpace(*text)) ++text;
  return text;
}

// Whether the name that ends before `end` holds white space after it is trimmed on both sides.
bool HoldsSpace(const char* begin, const char* end) {
  while (begin < end && IsSpace(*begin)) ++begin;
  while (begin < end && IsSpace(end[-1])) --end;
  for (; begin < end; ++begin) {
    if (IsSpace(*begin)) return true;
  }
  return false;
}
}  // namespace

int XmlDecoder::ValidateAttributeList(const char* list) {
  if (!list) return -1;
  bool pending = false;           // an '=' was seen and its value is not complete
  char quote = '\0';              // the kind of the open value, if any
  const char* nameStart = list;   // end of the previous value
  const char* valueStart = list;  // after the last '='
  const char* lastSpecial = nullptr;
  for (const char* at = list; *at; ++at) {
    if (*at == '=') {
      if (quote) continue;
      if (pending || HoldsSpace(nameStart, at)) return -1;
      pending = true;
      valueStart = at + 1;
    } else if (quote) {
      if (*at != quote) continue;
      quote = '\0';
      pending = false;
      nameStart = at + 1;
    } else if (*at != '"' && *at != '\'') {
      continue;
    } else {
      if (!pending || SkipSpace(valueStart) != at) return -1;
      quote = *at;
    }
    lastSpecial = at;
  }
  if (pending) return -1;  // an open value is a pending one, too
  // Intended: what stands after the name of an element without quotes and equals signs, as in `<a b
  // c>`, is no error: receivers get it as one attribute with an empty value.
  return lastSpecial && *SkipSpace(lastSpecial + 1) ? -1 : 0;
}

// ---- Text helpers -------------------------------------------------------------------------------

char* XmlDecoder::TrimSpaces(char* text) {
  if (!text) return nullptr;
  text += SkipSpace(text) - text;
  char* end = text + __strlen(text);
  while (end > text && IsSpace(end[-1])) --end;
  *end = '\0';
  return text;
}

char* XmlDecoder::N_strtok(char* str, const char* delims, char** next) {
  if (!str || !delims || !next) {
    ZtLog(kZtLogTrace, "src/XmlDecoder", __LINE__,
          kZtModuleParser)("XmlDecoder::N_strtok incomming params are null");
    return nullptr;
  }
  unsigned char set[256 / 8] = {};
  for (int i = 0; i < kMostDelimiters && delims[i]; ++i) {
    const auto c = static_cast<unsigned char>(delims[i]);
    set[c / 8] = static_cast<unsigned char>(set[c / 8] | (1U << (c % 8)));
  }
  const auto isDelimiter = [&set](char ch) {
    const auto c = static_cast<unsigned char>(ch);
    return (set[c / 8] >> (c % 8) & 1U) != 0;
  };
  while (*str && isDelimiter(*str)) ++str;
  char* end = str;
  while (*end && !isDelimiter(*end)) ++end;
  *next = *end ? end + 1 : end;
  *end = '\0';
  return end == str ? nullptr : str;
}

void XmlDecoder::UnescapeXmlString(char* text, const char* entity, char ch) {
  if (!text || !*text || !entity || !*entity) return;
  const std::size_t size = __strlen(entity);
  char* to = text;
  const char* from = text;
  while (const char* found = __strstr(from, entity)) {
    const auto piece = static_cast<std::size_t>(found - from);
    std::memmove(to, from, piece);
    to += piece;
    *to++ = ch;
    from = found + size;
  }
  if (to != from) std::memmove(to, from, __strlen(from) + 1);
}

void XmlDecoder::UnescapeXml(char* text) {
  if (text) ZtUnescape(text, text + __strlen(text));
}

// One pass over all five: none of the replacements can complete another entity
// except "&amp;", whose result is not looked at again.
char* ZtUnescape(char* text, char* end) {
  static constexpr struct {
    char entity[8];
    std::size_t size;
    char ch;
  } kEntities[] = {
      {"&quot;", 6, '"'},  {"&gt;", 4, '>'},  {"&lt;", 4, '<'},
      {"&apos;", 6, '\''}, {"&amp;", 5, '&'},
  };
  auto* from = static_cast<char*>(std::memchr(text, '&', static_cast<std::size_t>(end - text)));
  if (!from) return end;
  char* to = from;
  while (*from) {
    std::size_t size = 1;
    char ch = *from;
    if (ch == '&') {
      for (const auto& known : kEntities) {
        if (__strncmp(from, known.entity, known.size) != 0) continue;
        size = known.size;
        ch = known.ch;
        break;
      }
    }
    *to++ = ch;
    from += size;
  }
  *to = '\0';
  return to;
}
