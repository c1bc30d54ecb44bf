#include "Capture.h"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include "Decode.h"
#include "Headers.h"
#include "Split.h"
#include "Text.h"

namespace {

constexpr int kMostNesting = 8;
constexpr std::size_t kMostBoundary = 70;       // RFC 2046, 5.1.1
constexpr std::size_t kMostDecoded = 64 << 20;  // of a body
// What the bodies of a large capture may have together, as often as it is large.
constexpr std::size_t kMostGrowth = 16;
// Between messages; what looks for the next one need not read more.
constexpr std::size_t kMostBlanks = 1024;

std::string_view TrimBegin(std::string_view text, std::size_t most) {
  const std::size_t begin = text.substr(0, most).find_first_not_of(" \t\r\n");
  text.remove_prefix(std::min({begin, most, text.size()}));
  return text;
}

// The names of the encodings, of which the last one was applied last.
std::vector<std::string> ListOf(std::string_view text) {
  std::vector<std::string> names;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(','), text.size());
    const std::string name = LowerCase(Trim(text.substr(0, end)));
    if (!IsIdentity(name)) names.push_back(name);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return names;
}

// The size of the document at the beginning of `text` with what is after its root and cannot be
// anything else: in a log up to the line's end, else up to the next document or message.
std::size_t SizeWithRest(std::string_view text, bool isLog) {
  std::size_t at = SizeOfDocument(text);
  while (at < text.size()) {
    const std::string_view rest = text.substr(at);
    const bool beginsLine = at > 0 && text[at - 1] == '\n';
    if (beginsLine && (isLog || BeginsMessage(rest))) break;
    if (BeginsDocument(rest)) break;
    const bool isComment = StartsWith(rest, "<!--");
    std::size_t size = 0;
    if (isComment || StartsWith(rest, "<?")) {
      size = rest.find(isComment ? "-->" : "?>");
    } else {
      size = rest.find_first_of("\n<\xef", rest[0] != '\n');  // U+FEFF begins so
      if (size != std::string_view::npos) size += rest[size] == '\n';
    }
    at += std::min(size, rest.size());
    if (isComment && size != std::string_view::npos) at += 3;
  }
  return at;
}

// Tells places in a text, of which each is after the one before it.
class Places {
 public:
  Places(std::string_view text, Position start) : m_Text(text), m_Start(start), m_Last(start) {}

  Position At(const char* place) {
    const auto at = static_cast<std::size_t>(place - m_Text.data());
    if (at < m_iLast) return PositionAfter(m_Text.substr(0, at), m_Start);
    m_Last = PositionAfter(m_Text.substr(m_iLast, at - m_iLast), m_Last);
    m_iLast = at;
    return m_Last;
  }

 private:
  std::string_view m_Text;
  Position m_Start;
  Position m_Last;
  std::size_t m_iLast = 0;
};

class Reader {
 public:
  Reader(const Document& capture, std::vector<Document>& items)
      : m_Capture(capture),
        m_Items(items),
        m_Text(capture.text),
        m_Places(m_Text, capture.start),
        m_iMayDecode(std::max(kMostDecoded, kMostGrowth * capture.text.size())) {}

  void Read() {
    m_Rest = TrimBegin(m_Text, m_Text.size());
    const bool isMarked = StartsWith(m_Rest, "\xff\xfe") || StartsWith(m_Rest, "\xfe\xff");
    if (isMarked || m_Rest.substr(0, 4).find('\0') != std::string_view::npos) {  // UTF-16
      AddBody(m_Text, "");
    } else if (BeginsEntity(m_Rest)) {
      ReadMessage(false);
      ReadLog();
    } else if (!StartsWith(m_Rest, "<") && !StartsWith(m_Rest, "\xef\xbb\xbf<") &&
               NextMessage(m_Rest) < m_Text.size()) {
      ReadLog();
    } else if (!m_Rest.empty()) {
      m_Rest = m_Text;
      do {
        TakeDocument(SizeWithRest(m_Rest, false), "");
      } while (!m_Rest.empty() && !BeginsMessage(m_Rest));
      ReadLog();
    }
    if (!m_iLines) return;
    m_Message = {};
    Note("skipped", "lines that belong to no message: " + std::to_string(m_iLines), m_FirstLine);
  }

 private:
  // ---- Items ------------------------------------------------------------------------------------
  void Add(Document::Kind kind, const char* what, const std::string& why, Position at) {
    Document item;
    item.name = m_Capture.name;
    item.kind = kind;
    item.fault = {what, why, at};
    item.message = m_Message;
    m_Items.push_back(item);
  }
  void Note(const char* what, const std::string& why, Position at) {
    Add(Document::Kind::kNoted, what, why, at);
  }
  bool Fail(std::string_view at, const std::string& why) {
    m_bFound = true;
    Add(Document::Kind::kRefused, "capture", why, Where(at));
    return false;
  }
  void AddBody(std::string_view text, const std::string& type) {
    m_bFound = true;
    Document body;
    body.name = m_Capture.name;
    body.text = text;
    body.contentType = type;
    body.start = m_Places.At(text.data());
    body.message = m_Message;
    m_Items.push_back(std::move(body));
  }
  // A place in what was decoded is none in the file: there it is the message that counts.
  Position Where(std::string_view at) { return m_bDecoded ? m_MessageAt : m_Places.At(at.data()); }

  // ---- The whole text ---------------------------------------------------------------------------
  // Where the next start line begins, from the line on that `from` begins with; or the text's size.
  std::size_t NextMessage(std::string_view from) {
    auto at = static_cast<std::size_t>(from.data() - m_Text.data());
    if (m_iNext != kUnknown && at <= m_iNext) return m_iNext;
    while (at < m_Text.size() && !BeginsMessage(m_Text.substr(at))) {
      const std::size_t end = m_Text.find('\n', at);
      at = end == std::string_view::npos ? m_Text.size() : end + 1;
    }
    m_iNext = at;
    return at;
  }
  // `from` up to the next start line.
  std::string_view UpToNext(std::string_view from) {
    const auto at = static_cast<std::size_t>(from.data() - m_Text.data());
    return m_Text.substr(at, NextMessage(from) - at);
  }
  void Continue(std::string_view after) {
    m_Rest = m_Text.substr(static_cast<std::size_t>(after.data() + after.size() - m_Text.data()));
  }

  void TakeDocument(std::size_t size, const std::string& type) {
    const std::string_view document = m_Rest.substr(0, size);
    if (Trim(document).empty()) {
      m_Rest = {};
      return;
    }
    m_Message = {};
    AddBody(document, type);
    m_Rest.remove_prefix(size);
  }

  // Messages, documents, and lines that are neither.
  void ReadLog() {
    while (!m_Rest.empty()) {
      if (BeginsMessage(m_Rest)) {
        ReadMessage(true);
        continue;
      }
      const std::size_t size = SizeOfLine();
      if (!Trim(m_Rest.substr(0, size)).empty()) PassLine();
      m_Rest.remove_prefix(size);
      if (!IsDocumentInLog(m_Rest)) continue;
      TakeDocument(SizeWithRest(UpToNext(m_Rest), true), "");
    }
  }
  // Of a line up to its end, or to a document in it. The line may be long and have many of them.
  std::size_t SizeOfLine() const {
    std::size_t at = std::min(m_Rest.find_first_not_of(" \t\r"), m_Rest.size());
    if (IsDocumentInLog(m_Rest.substr(at))) return at;
    while (at < m_Rest.size() && m_Rest[at] != '\n') {
      at = std::min(m_Rest.find_first_of("\n<", at + 1), m_Rest.size());
      if (StartsWith(m_Rest.substr(at), "<?xml version")) return at;
    }
    return std::min(at + 1, m_Rest.size());
  }
  // Lines of system logs begin with numbers in angle brackets.
  static bool IsDocumentInLog(std::string_view text) {
    const char first = text.size() > 1 ? text[1] : '\0';
    const bool isPriority = first >= '0' && first <= '9' && !StartsWith(text, "<3gpp");
    return BeginsDocument(text) && !isPriority;
  }
  void PassLine() {
    if (!m_iLines++) m_FirstLine = m_Places.At(m_Rest.data());
  }

  // ---- Messages ---------------------------------------------------------------------------------
  void ReadMessage(bool hasStartLine) {
    m_MessageAt = m_Places.At(m_Rest.data());
    m_bFound = false;
    m_Skipped.clear();
    std::string_view text = m_Rest;
    m_Message = {++m_iMessages, "", ""};
    if (hasStartLine) m_Message.startLine = Trim(NextLine(text)).substr(0, Envelope::kMost);
    const std::string_view start = text;
    // A start line ends the headers, too.
    std::string_view head = UpToNext(text);
    const bool isLast = head.size() == text.size();
    Headers headers;
    if (!ReadHeaders(head, headers, !isLast)) {
      head = UpToNext(text);
      Continue(head);
      return;
    }
    m_Message.callId = headers.callId.substr(0, Envelope::kMost);
    std::string_view body = m_Text.substr(static_cast<std::size_t>(head.data() - m_Text.data()));
    bool isBounded = false;
    if (!CutToLength(start, headers, body, isBounded)) {
      Continue(UpToNext(start));
      return;
    }
    Continue(body);
    ReadEncoded(start, headers, body, 0, isBounded);
    if (m_bFound) return;
    const std::string but = m_Skipped.empty() ? "" : " (but " + QuoteShort(m_Skipped) + ")";
    Add(Document::Kind::kSkipped, "skipped", "no XML body" + but, m_MessageAt);
  }

  // Cuts headers and the blank line after them off `text`. There may be headers only in a part of a
  // body, and where there is no body.
  bool ReadHeaders(std::string_view& text, Headers& headers, bool mayLackEnd) {
    std::string* value = nullptr;
    bool isFirst = true;
    while (!text.empty()) {
      const std::string_view line = NextLine(text);
      if (line.empty()) return true;
      if (line[0] == ' ' || line[0] == '\t') {  // folded
        if (isFirst) return Fail(line, "a header is continued before the first one");
        if (value) value->append(" ").append(Trim(line));
        continue;
      }
      isFirst = false;
      const std::string name = HeaderName(line);
      if (name.empty()) return Fail(line, "not a header: " + QuoteShort(line));
      if (name == "call-id") headers.callId = Trim(line.substr(line.find(':') + 1));
      value = headers.Find(name);
      if (!value) continue;
      if (!value->empty()) {
        if (!headers.IsList(value)) return Fail(line, "a second " + QuoteShort(name) + " header");
        *value += ", ";
      }
      *value += Trim(line.substr(line.find(':') + 1));
    }
    return mayLackEnd || headers.type.empty() ||
           Fail(text, "the headers have no blank line after them");
  }

  bool SizeOf(std::string_view start, const std::string& length, std::size_t& size) {
    if (length.find_first_not_of("0123456789") != std::string::npos) {
      return Fail(start, "the Content-Length is no number: " + QuoteShort(length));
    }
    size = 0;
    for (const char c : length) {
      if (size > std::numeric_limits<std::size_t>::max() / 10 - 10) break;
      size = size * 10 + static_cast<std::size_t>(c - '0');
    }
    return true;
  }
  void NoteLength(const std::string& length, std::string_view body) {
    Note("capture",
         "the Content-Length is " + QuoteShort(length) + ", the body has " +
             std::to_string(body.size()) + " bytes, which are all used",
         m_MessageAt);
  }

  // Cuts the rest of the capture to the message's body. A correct length ends it, which
  // `isBounded` tells. A wrong one comes from converted line ends or a cut capture: then the next
  // start line ends the body.
  bool CutToLength(std::string_view start, const Headers& headers, std::string_view& body,
                   bool& isBounded) {
    const std::string_view all = body;
    body = UpToNext(body);
    if (headers.length.empty() || !ListOf(headers.chunks).empty()) return true;
    std::size_t size = 0;
    if (!SizeOf(start, headers.length, size)) return false;
    isBounded = size <= all.size() && IsEnd(all, size, body.size());
    if (isBounded) {
      body = all.substr(0, size);
    } else {
      NoteLength(headers.length, body);
    }
    return true;
  }
  // Whether a body may end after `size` bytes, where the next start line is after `next`: before a
  // message, or a line of a log.
  static bool IsEnd(std::string_view all, std::size_t size, std::size_t next) {
    const std::string_view after = TrimBegin(all.substr(size), kMostBlanks);
    if (after.empty() || BeginsMessage(after)) return true;
    if (size > next || after[0] == '<') return false;
    if (size == 0 || size == next) return true;
    return all[size - 1] == '\n' || all[size] == '\n' || all[size] == '\r' || all[size - 1] == '>';
  }

  // A part of a body, with headers of its own.
  bool ReadEntity(std::string_view text, int nesting) {
    const std::string_view start = text;
    Headers headers;
    if (!ReadHeaders(text, headers, true)) return false;
    std::size_t size = 0;
    if (!headers.length.empty()) {
      if (!SizeOf(start, headers.length, size)) return false;
      if (size <= text.size() && Trim(text.substr(size)).empty()) {
        text = text.substr(0, size);
      } else {
        NoteLength(headers.length, text);
      }
    }
    return ReadEncoded(start, headers, text, nesting, true);
  }

  // A body as it stands in the message. What is not bounded may have lines of a log after it.
  bool ReadEncoded(std::string_view start, const Headers& headers, std::string_view body,
                   int nesting, bool isBounded) {
    ContentType content;
    if (!headers.type.empty() && !ParseContentType(headers.type, content)) {
      return Fail(start, "the Content-Type is malformed: " + QuoteShort(headers.type));
    }
    std::vector<std::string> codings = ListOf(headers.encoding);
    for (const std::string* more : {&headers.transfer, &headers.chunks}) {
      const std::vector<std::string> names = ListOf(*more);
      codings.insert(codings.end(), names.begin(), names.end());
    }
    const bool isWanted = content.type.empty()
                              ? !Trim(body).empty()
                              : content.IsXml() || content.IsMultipart() || content.IsMessage();
    const bool isMarkup = StartsWith(Trim(body), "<");
    if (!isBounded && headers.length.empty() && headers.type.empty() && codings.empty() &&
        !isMarkup) {
      Continue(body.substr(0, 0));  // they are lines of the log
      return true;
    }
    if (!isWanted) {
      Skip(start, content.type, nesting);
      return true;
    }
    if (!codings.empty()) return ReadDecoded(start, content, codings, body, nesting, isBounded);
    const bool isXml = content.IsXml() || (content.type.empty() && isMarkup);
    if (isXml && !isBounded) {
      body = body.substr(0, SizeWithRest(body, true));
      Continue(body);
    }
    return ReadBody(start, content, body, nesting);
  }
  void Skip(std::string_view start, const std::string& type, int nesting) {
    if (nesting > 0 && !type.empty()) {
      Note("skipped", "a part of the type " + QuoteShort(type), Where(start));
    } else if (!type.empty()) {
      m_Skipped = type;
    }
  }

  bool ReadDecoded(std::string_view start, const ContentType& content,
                   const std::vector<std::string>& codings, std::string_view body, int nesting,
                   bool isBounded) {
    if (codings.size() > kMostNesting) {
      return Fail(start, "more than " + std::to_string(kMostNesting) + " encodings of a body");
    }
    std::string text;
    std::string_view coded = body;
    for (std::size_t i = codings.size(); i-- > 0; coded = text) {
      std::string decoded;
      std::string_view rest;
      std::string why;
      const std::size_t most = std::min(kMostDecoded, m_iMayDecode);
      if (!Decode(codings[i], coded, most, decoded, rest, why)) {
        return Fail(start, "the body is encoded (" + QuoteShort(codings[i]) + "): " + why);
      }
      if (!isBounded && coded.data() == body.data()) {
        Continue(body.substr(0, body.size() - rest.size()));
      } else if (!Trim(rest).empty()) {
        Note("skipped",
             std::to_string(rest.size()) + " bytes after the encoded body (" +
                 QuoteShort(codings[i]) + ')',
             Where(start));
      }
      m_iMayDecode -= decoded.size();
      text.swap(decoded);
    }
    const Places places = m_Places;
    const bool wasDecoded = m_bDecoded;
    m_Places = Places(text, {1, 1});
    m_bDecoded = true;
    const bool isRead = ReadBody(text, content, text, nesting);
    m_Places = places;
    m_bDecoded = wasDecoded;
    return isRead;
  }

  bool ReadBody(std::string_view start, const ContentType& content, std::string_view body,
                int nesting) {
    const std::string_view trimmed = Trim(body);
    if (content.IsXml() || (content.type.empty() && StartsWith(trimmed, "<"))) {
      if (trimmed.empty()) return Fail(body, "the XML body is empty");
      AddBody(body, content.type);
      return true;
    }
    if (content.type.empty()) return true;
    if (nesting == kMostNesting) {
      return Fail(start, "more than " + std::to_string(kMostNesting) + " bodies within each other");
    }
    if (content.IsMultipart()) return ReadParts(start, content, body, nesting);
    if (content.type == "message/cpim") {
      Headers metadata;
      if (!ReadHeaders(body, metadata, false)) return false;
    }
    return ReadEntity(body, nesting + 1);
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
      if (part) ReadPart(part, line.data(), nesting);
      part = rest.data();
      if (last) return true;
    }
    if (!part) return Fail(body, "no part begins with the boundary " + QuoteShort(delimiter));
    // The last delimiter is missing: the capture was cut, and the parser will tell where.
    ReadPart(part, body.data() + body.size(), nesting);
    return true;
  }

  // The line end before a delimiter belongs to the delimiter.
  void ReadPart(const char* begin, const char* end, int nesting) {
    std::string_view part(begin, static_cast<std::size_t>(end - begin));
    if (EndsWith(part, "\n")) part.remove_suffix(1);
    if (EndsWith(part, "\r")) part.remove_suffix(1);
    if (!part.empty()) ReadEntity(part, nesting + 1);
  }

  static constexpr std::size_t kUnknown = std::string_view::npos;

  const Document& m_Capture;
  std::vector<Document>& m_Items;
  const std::string_view m_Text;
  std::string_view m_Rest;         // what has not been read
  Places m_Places;                 // of m_Text, or of what was decoded
  bool m_bDecoded = false;         // whether it is the latter
  std::size_t m_iMayDecode;        // so many bytes more
  std::size_t m_iNext = kUnknown;  // the last start line that was looked for
  std::size_t m_iLines = 0;        // that were passed over
  Position m_FirstLine;            // of these
  std::size_t m_iMessages = 0;
  // Of the current message:
  Envelope m_Message;
  Position m_MessageAt;
  bool m_bFound = false;  // whether it gave a document, or a failure
  std::string m_Skipped;  // a content type that was passed over
};

}  // namespace

bool ReadCapture(const Document& capture, std::vector<Document>& bodies, Failure& failure) {
  const std::size_t before = bodies.size();
  Reader(capture, bodies).Read();
  if (bodies.size() == before) {
    failure = {"file", "empty"};
    return false;
  }
  const auto begin = bodies.begin() + static_cast<std::ptrdiff_t>(before);
  const auto count =
      std::count_if(begin, bodies.end(), [](const Document& body) { return body.IsDocument(); });
  std::size_t number = 0;
  for (auto body = begin; count > 1 && body != bodies.end(); ++body) {
    if (body->IsDocument()) body->name += '#' + std::to_string(++number);
  }
  return true;
}
