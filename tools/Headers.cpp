#include "Headers.h"

#include <algorithm>

#include "Text.h"

namespace {

// No start line is longer: what looks for one need not read more.
constexpr std::size_t kMostStartLine = 4096;

bool IsToken(std::string_view text) {
  constexpr std::string_view kToken =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-.!%*_+`'~#$&^|";
  return !text.empty() && text.find_first_not_of(kToken) == std::string_view::npos;
}

// Cuts a parameter's value, quoted or not, off `text`. False for a quoted one without an end.
bool CutValue(std::string_view& text, std::string& value) {
  if (!StartsWith(text, "\"")) {
    const std::size_t end = text.find(';');
    value = Trim(text.substr(0, end));
    text.remove_prefix(std::min(end, text.size()));
    return true;
  }
  std::size_t at = 1;
  for (; at < text.size() && text[at] != '"'; ++at) {
    if (text[at] == '\\' && at + 1 < text.size()) ++at;
    value += text[at];
  }
  if (at >= text.size()) return false;
  text.remove_prefix(at + 1);
  return true;
}

// Whether something like the version of a start line is in `line`. Few lines have it, so that this
// spares the closer looks.
bool HasVersion(std::string_view line) {
  for (std::size_t at = line.find('/'); at != std::string_view::npos; at = line.find('/', at + 1)) {
    const char next = at + 1 < line.size() ? line[at + 1] : '\0';
    if (next == '2' || next == '1') return true;
  }
  return false;
}

// Three digits, at the end or before a blank.
bool BeginsStatus(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789";
  return text.size() >= 3 &&
         text.substr(0, 3).find_first_not_of(kDigits) == std::string_view::npos &&
         (text.size() == 3 || text[3] == ' ');
}

bool IsStatusLine(std::string_view line) {
  if (StartsWith(line, "SIP/2.0 ")) return BeginsStatus(line.substr(8));
  return (StartsWith(line, "HTTP/1.1 ") || StartsWith(line, "HTTP/1.0 ")) &&
         BeginsStatus(line.substr(9));
}

// Where the request line begins that `line` ends with; npos for none.
std::size_t FindRequest(std::string_view line) {
  constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::size_t end = std::string_view::npos;
  for (const std::string_view version : {" SIP/2.0", " HTTP/1.1", " HTTP/1.0"}) {
    if (EndsWith(line, version)) end = line.size() - version.size();
  }
  if (end == std::string_view::npos) return end;
  const std::size_t blank = line.substr(0, end).rfind(' ');
  if (blank == std::string_view::npos || blank + 1 == end) return std::string_view::npos;
  const std::size_t before = line.substr(0, blank).rfind(' ');
  const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
  const std::string_view method = line.substr(begin, blank - begin);
  const bool isMethod =
      !method.empty() && method.find_first_not_of(kLetters) == std::string_view::npos;
  return isMethod ? begin : std::string_view::npos;
}

bool EndsWithStatusLine(std::string_view line) {
  for (const std::string_view version : {" SIP/2.0 ", " HTTP/1.1 ", " HTTP/1.0 "}) {
    const std::size_t found = line.find(version);
    if (found != std::string_view::npos && IsStatusLine(line.substr(found + 1))) return true;
  }
  return false;
}

}  // namespace

std::string_view NextLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (EndsWith(line, "\r")) line.remove_suffix(1);
  return line;
}

bool BeginsMessage(std::string_view text) {
  std::string_view rest = text.substr(0, 2 * kMostStartLine);
  const std::string_view line = NextLine(rest);
  if (line.size() > kMostStartLine || !HasVersion(line)) return false;
  const std::size_t request = FindRequest(line);
  if (request == 0 || IsStatusLine(line)) return true;
  if (request == std::string_view::npos && !EndsWithStatusLine(line)) return false;
  return !HeaderName(NextLine(rest)).empty();
}

std::string HeaderName(std::string_view line) {
  const std::size_t colon = line.find(':');
  const std::string_view name = Trim(line.substr(0, colon));
  if (colon == std::string_view::npos || !IsToken(name)) return "";
  std::string lower = LowerCase(name);
  if (lower == "c") return "content-type";
  if (lower == "l") return "content-length";
  if (lower == "e") return "content-encoding";
  if (lower == "i") return "call-id";
  return lower;
}

std::string* Headers::Find(std::string_view name) {
  if (name == "content-type") return &type;
  if (name == "content-length") return &length;
  if (name == "content-transfer-encoding") return &transfer;
  if (name == "content-encoding") return &encoding;
  if (name == "transfer-encoding") return &chunks;
  return nullptr;
}

bool BeginsEntity(std::string_view text) {
  Headers headers;
  bool isFirst = true;
  bool hasKnown = false;
  while (!text.empty() && !BeginsMessage(text)) {
    const std::string_view line = NextLine(text);
    if (line.empty()) return hasKnown;
    const std::string name = HeaderName(line);
    if (isFirst && name.empty()) return false;
    isFirst = false;
    hasKnown = hasKnown || headers.Find(name);
  }
  return text.empty() && hasKnown;
}

bool ContentType::IsMultipart() const { return StartsWith(type, "multipart/"); }

bool ContentType::IsXml() const {
  return EndsWith(type, "+xml") || EndsWith(type, "/xml") || EndsWith(type, "-xml");
}

bool ParseContentType(std::string_view text, ContentType& parsed) {
  std::size_t end = text.find(';');
  parsed.type = LowerCase(Trim(text.substr(0, end)));
  const std::size_t slash = parsed.type.find('/');
  if (slash == std::string::npos || !IsToken(parsed.type.substr(0, slash)) ||
      !IsToken(parsed.type.substr(slash + 1))) {
    return false;
  }
  bool bounded = false;
  while (end != std::string_view::npos) {
    text.remove_prefix(end + 1);
    end = text.find_first_of("=;");
    if (end == std::string_view::npos || text[end] == ';') continue;
    const std::string name = LowerCase(Trim(text.substr(0, end)));
    text.remove_prefix(end + 1);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    std::string value;
    if (!CutValue(text, value)) return false;
    if (name == "boundary") {
      if (bounded) return false;
      bounded = true;
      parsed.boundary = value;
    }
    end = text.find(';');
  }
  return true;
}
