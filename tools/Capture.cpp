#include "Capture.h"

#include <algorithm>
#include <limits>
#include <string>

#include "Text.h"

namespace {

constexpr int kMostNesting = 8;
constexpr std::size_t kMostBoundary = 70;  // RFC 2046, 5.1.1

// Cuts the next line off `text`, and its end (LF or CRLF) off the line.
std::string_view NextLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (EndsWith(line, "\r")) line.remove_suffix(1);
  return line;
}

bool IsToken(std::string_view text) {
  constexpr std::string_view kToken =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-.!%*_+`'~#$&^|";
  return !text.empty() && text.find_first_not_of(kToken) == std::string_view::npos;
}

// The name of a header line in lower case, compact forms in full; "" when it is none.
std::string HeaderName(std::string_view line) {
  const std::size_t colon = line.find(':');
  const std::string_view name = Trim(line.substr(0, colon));
  if (colon == std::string_view::npos || !IsToken(name)) return "";
  std::string lower = LowerCase(name);
  if (lower == "c") return "content-type";
  if (lower == "l") return "content-length";
  if (lower == "e") return "content-encoding";
  return lower;
}

bool IsStartLine(std::string_view line) {
  return StartsWith(line, "SIP/2.0 ") || StartsWith(line, "HTTP/1.") ||
         EndsWith(line, " SIP/2.0") || EndsWith(line, " HTTP/1.1") || EndsWith(line, " HTTP/1.0");
}

// What matters of an entity's headers; "" for none.
struct Headers {
  std::string type;      // of the content, with its parameters
  std::string length;    // of the content
  std::string transfer;  // its transfer encoding in MIME
  std::string encoding;
  std::string chunks;  // its transfer encoding in HTTP

  std::string* Find(const std::string& name) {
    if (name == "content-type") return &type;
    if (name == "content-length") return &length;
    if (name == "content-transfer-encoding") return &transfer;
    if (name == "content-encoding") return &encoding;
    if (name == "transfer-encoding") return &chunks;
    return nullptr;
  }
};

// A content type: the type itself in lower case, and the boundary of a multipart one.
struct ContentType {
  std::string type;
  std::string boundary;
};

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

bool IsXml(const std::string& type) {
  return EndsWith(type, "+xml") || EndsWith(type, "/xml") || EndsWith(type, "-xml");
}

class Reader {
 public:
  Reader(const Document& capture, std::vector<Document>& bodies)
      : m_Capture(capture), m_Bodies(bodies) {}

  bool Read() {
    std::string_view text = m_Capture.text;
    while (!text.empty() && (text[0] == '\r' || text[0] == '\n')) text.remove_prefix(1);
    std::string_view rest = text;
    if (IsStartLine(NextLine(rest))) text = rest;
    return ReadEntity(text, 0);
  }
  const Failure& Why() const { return m_Failure; }
  // A content type that was passed over.
  const std::string& Skipped() const { return m_Skipped; }

 private:
  // `at` is where in the capture.
  bool Fail(std::string_view at, const std::string& what) {
    const auto offset = static_cast<std::size_t>(at.data() - m_Capture.text.data());
    m_Failure = {"capture", what, m_Capture.At(offset)};
    return false;
  }

  // Cuts headers and the blank line after them off `text`. A part of a body may have headers only.
  bool ReadHeaders(std::string_view& text, Headers& headers, bool isPart) {
    std::string* value = nullptr;
    bool first = true;
    while (!text.empty()) {
      const std::string_view line = NextLine(text);
      if (line.empty()) return true;
      if (line[0] == ' ' || line[0] == '\t') {  // folded
        if (first) return Fail(line, "a header is continued before the first one");
        if (value) value->append(" ").append(Trim(line));
        continue;
      }
      first = false;
      const std::string name = HeaderName(line);
      if (name.empty()) return Fail(line, "not a header: " + QuoteShort(line));
      value = headers.Find(name);
      if (!value) continue;
      if (!value->empty()) return Fail(line, "a second " + QuoteShort(name) + " header");
      *value = Trim(line.substr(line.find(':') + 1));
    }
    return isPart || Fail(text, "the headers have no blank line after them");
  }

  bool ReadEntity(std::string_view text, int nesting) {
    const std::string_view start = text;
    Headers headers;
    if (!ReadHeaders(text, headers, nesting > 0)) return false;
    if (!CutToLength(start, headers.length, text)) return false;
    ContentType content;
    if (!headers.type.empty() && !ParseContentType(headers.type, content)) {
      return Fail(start, "the Content-Type is malformed: " + QuoteShort(headers.type));
    }
    return ReadBody(start, headers, content, text, nesting);
  }

  bool ReadBody(std::string_view start, const Headers& headers, const ContentType& content,
                std::string_view body, int nesting) {
    const std::string_view trimmed = Trim(body);
    const bool isMultipart = StartsWith(content.type, "multipart/");
    const bool isXml = content.type.empty() ? StartsWith(trimmed, "<") : IsXml(content.type);
    const bool isMessage = content.type == "message/cpim" || content.type == "message/rfc822";
    // message/imdn+xml and all other XML is taken by its content.
    if (!isMultipart && !isMessage && !isXml) {
      if (!content.type.empty()) m_Skipped = content.type;
      return true;
    }
    if (!IsPlain(headers)) {
      return Fail(start, "the body is encoded (" +
                             QuoteShort(headers.transfer + headers.encoding + headers.chunks) +
                             "), which is not supported");
    }
    if (isXml) {
      if (trimmed.empty()) return Fail(body, "the XML body is empty");
      AddBody(body, content.type);
      return true;
    }
    if (nesting == kMostNesting) {
      return Fail(start, "more than " + std::to_string(kMostNesting) + " bodies within each other");
    }
    if (isMultipart) return ReadParts(start, content, body, nesting);
    if (content.type == "message/cpim") {
      Headers metadata;
      if (!ReadHeaders(body, metadata, false)) return false;
    }
    return ReadEntity(body, nesting + 1);
  }

  static bool IsPlain(const Headers& headers) {
    const std::string transfer = LowerCase(headers.transfer);
    const std::string encoding = LowerCase(headers.encoding);
    return (transfer.empty() || transfer == "7bit" || transfer == "8bit" || transfer == "binary") &&
           (encoding.empty() || encoding == "identity") && headers.chunks.empty();
  }

  // A correct length ends the body. A wrong one comes from converted line ends or a cut capture:
  // then the rest of the capture is the body.
  bool CutToLength(std::string_view start, const std::string& length, std::string_view& body) {
    if (length.empty()) return true;
    if (length.find_first_not_of("0123456789") != std::string::npos) {
      return Fail(start, "the Content-Length is no number: " + QuoteShort(length));
    }
    std::size_t size = 0;
    for (const char c : length) {
      if (size > std::numeric_limits<std::size_t>::max() / 10 - 10) break;
      size = size * 10 + static_cast<std::size_t>(c - '0');
    }
    if (size <= body.size() && Trim(body.substr(size)).empty()) {
      body = body.substr(0, size);
    } else {
      Complain(m_Capture.name, "capture: the Content-Length is " + QuoteShort(length) +
                                   ", the body has " + std::to_string(body.size()) +
                                   " bytes, which are all used");
    }
    return true;
  }

  bool ReadParts(std::string_view start, const ContentType& content, std::string_view body,
                 int nesting) {
    if (content.boundary.empty() || content.boundary.size() > kMostBoundary) {
      return Fail(start, content.boundary.empty() ? "the multipart body has no boundary"
                                                  : "the boundary has more than 70 characters");
    }
    const std::string delimiter = "--" + content.boundary;
    const char* part = nullptr;  // where the current part begins
    std::string_view rest = body;
    while (!rest.empty()) {
      const std::string_view line = NextLine(rest);
      if (!StartsWith(line, delimiter)) continue;
      const std::string_view after = line.substr(delimiter.size());
      const bool last = StartsWith(after, "--") && Trim(after.substr(2)).empty();
      if (!last && !Trim(after).empty()) continue;
      if (part && !ReadPart(part, line.data(), nesting)) return false;
      part = rest.data();
      if (last) return true;
    }
    if (!part) return Fail(body, "no part begins with the boundary " + QuoteShort(delimiter));
    // The last delimiter is missing: the capture was cut, and the parser will tell where.
    return ReadPart(part, body.data() + body.size(), nesting);
  }

  // The line end before a delimiter belongs to the delimiter.
  bool ReadPart(const char* begin, const char* end, int nesting) {
    std::string_view part(begin, static_cast<std::size_t>(end - begin));
    if (EndsWith(part, "\n")) part.remove_suffix(1);
    if (EndsWith(part, "\r")) part.remove_suffix(1);
    if (part.empty()) return true;
    return ReadEntity(part, nesting + 1);
  }

  void AddBody(std::string_view text, const std::string& type) {
    const auto offset = static_cast<std::size_t>(text.data() - m_Capture.text.data());
    // Lines are counted from the last body on, so that many bodies cost no more than few.
    const std::string_view passed(m_Capture.text);
    m_Position = PositionAfter(passed.substr(m_iCounted, offset - m_iCounted), m_Position);
    m_iCounted = offset;
    const bool cut = m_Capture.cut && offset + text.size() == m_Capture.text.size();
    m_Bodies.push_back({m_Capture.name, std::string(text), type, m_Position, cut});
  }

  const Document& m_Capture;
  std::vector<Document>& m_Bodies;
  Failure m_Failure;
  std::string m_Skipped;
  Position m_Position = {1, 1};
  std::size_t m_iCounted = 0;
};

}  // namespace

bool IsCapture(std::string_view text) {
  while (!text.empty() && (text[0] == '\r' || text[0] == '\n')) text.remove_prefix(1);
  const std::string_view line = NextLine(text);
  return !StartsWith(line, "<") && (IsStartLine(line) || !HeaderName(line).empty());
}

bool ReadCapture(const Document& capture, std::vector<Document>& bodies, Failure& failure) {
  const std::size_t before = bodies.size();
  Reader reader(capture, bodies);
  if (!reader.Read()) {
    failure = reader.Why();
    return false;
  }
  const std::size_t found = bodies.size() - before;
  if (found == 0) {
    failure = {"capture", "no XML body"};
    if (!reader.Skipped().empty()) failure.what += " (but " + QuoteShort(reader.Skipped()) + ")";
    return false;
  }
  for (std::size_t i = 0; found > 1 && i < found; ++i) {
    bodies[before + i].name += " (body " + std::to_string(i + 1) + ')';
  }
  return true;
}
