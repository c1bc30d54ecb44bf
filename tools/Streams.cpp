#include "Streams.h"

#include <algorithm>
#include <arpa/inet.h>
#include <limits>
#include <utility>

#include "Text.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::size_t kMostMethod = 32;
constexpr std::size_t kMostName = 32;  // of a header that matters
// How far a connection's first segment may come after others of it.
constexpr std::int64_t kMostReordered = 1 << 20;

// Cuts the next line off `text`. False when it has no end; then `text` is as it was.
bool CutLine(std::string_view& text, std::string_view& line) {
  const std::size_t end = text.find('\n');
  if (end == kNone) return false;
  line = text.substr(0, end);
  if (EndsWith(line, "\r")) line.remove_suffix(1);
  text.remove_prefix(end + 1);
  return true;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsMethodLetter(char c) { return (c >= 'A' && c <= 'Z') || c == '-' || c == '_'; }

// "SIP/2.0 200 OK" after the version and a blank.
bool IsStatus(std::string_view text) {
  return text.size() >= 3 && IsDigit(text[0]) && IsDigit(text[1]) && IsDigit(text[2]) &&
         (text.size() == 3 || text[3] == ' ');
}

// "PUT /path" before a blank and the version.
bool IsRequest(std::string_view text) {
  const std::size_t blank = text.substr(0, kMostMethod).find(' ');
  if (blank == kNone || blank == 0 || blank + 1 == text.size()) return false;
  return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(blank),
                     IsMethodLetter) &&
         text.find(' ', blank + 1) == kNone;
}

bool IsStartLine(std::string_view line, std::string_view version) {
  const std::size_t size = version.size();
  if (line.size() <= size) return false;
  if (StartsWith(line, version) && line[size] == ' ') return IsStatus(line.substr(size + 1));
  if (!EndsWith(line, version)) return false;
  line.remove_suffix(size);
  return line.back() == ' ' && IsRequest(line.substr(0, line.size() - 1));
}

constexpr std::string_view kVersions[] = {"SIP/2.0", "HTTP/1.1", "HTTP/1.0"};

// Where a start line begins that ends with `line`: after a body that ends without a line end, it
// begins within the line. kNone when there is none.
std::size_t FindStartLine(std::string_view line) {
  for (const std::string_view version : kVersions) {
    if (IsStartLine(line, version)) return 0;
    const std::size_t response = line.find(version);
    if (response == kNone) continue;
    if (IsStartLine(line.substr(response), version)) return response;
    if (!EndsWith(line, version)) continue;
    const std::size_t address =  // the blank after it
        line.substr(0, line.size() - version.size()).rfind(' ');
    if (address == kNone || address == 0) continue;
    std::size_t method = line.rfind(' ', address - 1);
    if (method == kNone) continue;
    while (method > 0 && IsMethodLetter(line[method - 1])) --method;
    if (IsStartLine(line.substr(method), version)) return method;
  }
  return kNone;
}

bool IsSip(std::string_view line) { return IsStartLine(line, kVersions[0]); }
bool IsHttp(std::string_view line) {
  return IsStartLine(line, kVersions[1]) || IsStartLine(line, kVersions[2]);
}

// A record of TLS: type, version, length (RFC 8446, 5.1).
bool IsEncrypted(std::string_view bytes) {
  if (bytes.size() < 5 || bytes[0] < 20 || bytes[0] > 23 || bytes[1] != 3) return false;
  const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned length = at(3) * 256U + at(4);
  return at(2) <= 4 && length > 0 && length <= 16384 + 2048;
}

// A number of decimal or hexadecimal digits, all of `text`; the greatest one for all that are
// greater. kNone when it is none.
std::size_t ParseNumber(std::string_view text, unsigned base) {
  constexpr std::size_t kGreatest = std::numeric_limits<std::size_t>::max() / 32;
  std::size_t number = 0;
  for (char c : text) {
    if (c >= 'A' && c <= 'F') c = static_cast<char>(c - 'A' + 'a');
    const bool isLetter = base == 16 && c >= 'a' && c <= 'f';
    if (!IsDigit(c) && !isLetter) return kNone;
    const auto digit = static_cast<unsigned>(isLetter ? c - 'a' + 10 : c - '0');
    number = std::min(number * base + digit, kGreatest);
  }
  return text.empty() ? kNone : number;
}

// How far a message goes, or as far as it was looked at if it is not whole.
struct Extent {
  std::size_t size = 0;
  bool isWhole = false;
  bool hasNoBody = false;  // whatever its headers say
};

// Finds the end of the message that `text` begins with. Where one is not whole, what was looked at
// is not looked at again: the costs of many broken messages are those of their bytes.
class Measure {
 public:
  // `endsInGap`: whether something is missing after `text`.
  Measure(std::string_view text, bool endsInGap) : m_Text(text), m_bEndsInGap(endsInGap) {}

  Extent Find() {
    std::string_view rest = m_Text;
    std::string_view line;
    if (!CutLine(rest, line)) return {m_Text.size(), false};
    m_bSip = IsSip(line);
    m_bResponse = StartsWith(line, "SIP/") || StartsWith(line, "HTTP/");
    const std::string status(m_bResponse ? line.substr(line.find(' ') + 1, 3) : "");
    for (;;) {
      const std::string_view before = rest;
      if (!CutLine(rest, line)) return {m_Text.size(), false};
      if (line.empty()) break;
      if (IsSip(line) || IsHttp(line)) return {OffsetOf(before), false};
      ReadHeader(line);
    }
    if (!m_bSip && m_bResponse && (status[0] == '1' || status == "204" || status == "304")) {
      return {OffsetOf(rest), true, true};
    }
    return FindBody(rest);
  }

 private:
  std::size_t OffsetOf(std::string_view rest) const { return m_Text.size() - rest.size(); }

  void ReadHeader(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon > kMostName) return;  // there may be none
    const std::string name = LowerCase(Trim(line.substr(0, colon)));
    const std::string_view value = Trim(line.substr(colon + 1));
    if (name == "content-length" || (m_bSip && name == "l")) m_iLength = ParseNumber(value, 10);
    if (name == "transfer-encoding") m_bChunked = EndsWith(LowerCase(value), "chunked");
  }

  Extent FindBody(std::string_view body) const {
    const std::size_t start = OffsetOf(body);
    if (!m_bSip && m_bResponse && StartsWith(body, "HTTP/1.")) {
      return {start, true, true};  // to HEAD
    }
    if (!m_bSip && m_bChunked) return FindLastChunk(body);
    if (m_iLength != kNone) {
      if (m_iLength > body.size()) return {start, false};
      return {start + m_iLength, true};
    }
    if (!m_bSip && !m_bResponse) return {start, true};
    // The connection's end is the end, or what is a message again.
    std::string_view line;
    for (std::string_view rest = body; CutLine(rest, line);) {
      const auto at = static_cast<std::size_t>(line.data() - m_Text.data());
      const std::size_t next = FindStartLine(line);
      if (next != kNone) return {at + next, true};
    }
    return {m_Text.size(), !m_bEndsInGap};
  }

  Extent FindLastChunk(std::string_view rest) const {
    std::string_view line;
    for (;;) {
      const std::size_t at = OffsetOf(rest);
      if (!CutLine(rest, line)) return {m_Text.size(), false};
      const std::size_t size = ParseNumber(Trim(line.substr(0, line.find(';'))), 16);
      if (size == kNone) return {at, false};
      if (size == 0) break;
      if (size > rest.size()) return {OffsetOf(rest), false};
      rest.remove_prefix(size);
      if (!CutLine(rest, line)) return {m_Text.size(), false};
      if (!line.empty()) return {OffsetOf(rest), false};
    }
    while (CutLine(rest, line)) {  // trailers
      if (line.empty()) return {OffsetOf(rest), true};
    }
    return {m_Text.size(), false};
  }

  std::string_view m_Text;
  bool m_bEndsInGap;
  bool m_bSip = false;
  bool m_bResponse = false;
  bool m_bChunked = false;
  std::size_t m_iLength = kNone;
};

// What one end sends without anything missing, and where in it packets begin.
struct Run {
  std::string text;
  std::vector<std::pair<std::size_t, Time>> times;
  bool isBegin = false;  // whether it is the beginning of the stream
  bool endsInGap = false;
};

// Cuts the messages out of the runs of a stream.
class Cutter {
 public:
  Cutter(Origin origin, Traffic& traffic) : m_Origin(std::move(origin)), m_Traffic(traffic) {}

  void Cut(const Run& run) {
    m_iTime = 0;
    // Whether a message may begin here, so that anything else is out of place.
    bool isBetween = run.isBegin;
    for (std::size_t at = 0; at < run.text.size() && !m_bEncrypted;) {
      if (run.text[at] == '\r' || run.text[at] == '\n') {  // keep-alives (RFC 5626)
        ++at;
        continue;
      }
      const std::string_view text = std::string_view(run.text).substr(at);
      m_bEncrypted = isBetween && IsEncrypted(text);
      if (m_bEncrypted) break;
      if (!BeginsSipOrHttp(text)) {
        at += Skip(text, isBetween);
        continue;
      }
      const Extent extent = Measure(text, run.endsInGap).Find();
      if (extent.isWhole) {
        Add(run, at, text.substr(0, extent.size), extent.hasNoBody);
      } else {
        ++m_Traffic.incompleteMessages;
      }
      isBetween = extent.isWhole;
      at += extent.size;
    }
  }
  bool HasMessages() const { return m_bMessages; }
  bool IsEncryptedFromHere() const { return m_bEncrypted; }
  // Of what was skipped. Where there is no message at all, they are of something else.
  void CountSkipped() {
    if (!m_bMessages) return;
    m_Traffic.strayBytes += m_iStray;
    m_Traffic.incompleteMessages += m_iBegun;
  }

 private:
  // How far a message may begin again. `isBetween` as above.
  std::size_t Skip(std::string_view text, bool isBetween) {
    std::string_view rest = text;
    std::string_view line;
    if (!CutLine(rest, line)) {  // the rest of it is missing
      m_iBegun += isBetween;
      return text.size();
    }
    const std::size_t start = FindStartLine(line);
    const std::size_t size = start == kNone ? text.size() - rest.size() : start;
    if (isBetween) m_iStray += size;
    return size;
  }

  void Add(const Run& run, std::size_t at, std::string_view text, bool hasNoBody) {
    while (m_iTime + 1 < run.times.size() && run.times[m_iTime + 1].first <= at) ++m_iTime;
    m_Origin.time = run.times[m_iTime].second;
    m_Traffic.messages.push_back({m_Origin, std::string(text), hasNoBody});
    m_bMessages = true;
  }

  Origin m_Origin;
  Traffic& m_Traffic;
  std::size_t m_iTime = 0;
  std::size_t m_iStray = 0;
  std::size_t m_iBegun = 0;
  bool m_bMessages = false;
  bool m_bEncrypted = false;
};

std::string KeyOf(const Endpoint& from, const Endpoint& to) {
  std::string key;
  for (const Endpoint* end : {&from, &to}) {
    key += end->address;
    key += static_cast<char>(end->port / 256);
    key += static_cast<char>(end->port % 256);
  }
  return key;
}

// One for both directions: ends have addresses of one size.
std::string ConnectionOf(const std::string& key, int number) {
  const std::size_t half = key.size() / 2;
  return std::min(key, key.substr(half) + key.substr(0, half)) + std::to_string(number);
}

}  // namespace

std::string ToString(const Endpoint& endpoint) {
  char text[INET6_ADDRSTRLEN] = "";
  const bool isLong = endpoint.address.size() == 16;
  inet_ntop(isLong ? AF_INET6 : AF_INET, endpoint.address.data(), text, sizeof text);
  const std::string port = ':' + std::to_string(endpoint.port);
  return isLong ? '[' + std::string(text) + ']' + port : text + port;
}

bool BeginsSipOrHttp(std::string_view text) {
  std::string_view line;
  return CutLine(text, line) && (IsSip(line) || IsHttp(line));
}

bool BeginsSipMessage(std::string_view text) {
  std::string_view line;
  return CutLine(text, line) && IsSip(line);
}

void Streams::Add(const Endpoint& from, const Endpoint& to, const Segment& segment) {
  if (segment.size == 0 && !segment.begins) return;
  const std::string key = KeyOf(from, to);
  Direction& direction = m_Directions[key];
  const std::uint32_t first = segment.sequence + (segment.begins ? 1U : 0U);
  if (!direction.isOpen) {
    direction.isOpen = true;
    direction.from = ToString(from);
    direction.to = ToString(to);
    direction.begin = direction.end = first;
  }
  // Sequence numbers begin again after 2^32; what comes next lies less than half of that away.
  const auto distance =
      static_cast<std::int32_t>(first - static_cast<std::uint32_t>(direction.end));
  std::int64_t at = direction.end + distance;
  if (segment.begins) {
    const std::int64_t before = direction.begin - at;
    const bool isKnown = direction.hasBegin ? before == 0 : before >= 0 && before < kMostReordered;
    if (!isKnown) {  // the ports are used again
      FinishDirection(key, direction);
      direction.pieces.clear();
      direction.bytes.clear();
      ++direction.connection;
      at = direction.end = first;
    }
    direction.begin = at;
    direction.hasBegin = true;
  } else if (!direction.hasBegin) {
    direction.begin = std::min(direction.begin, at);
  }
  direction.end = std::max(direction.end, at + static_cast<std::int64_t>(segment.size));
  if (segment.bytes.empty()) return;
  direction.pieces.push_back({at, direction.bytes.size(), segment.bytes.size(), segment.time});
  direction.bytes += segment.bytes;
}

void Streams::Finish() {
  for (auto& [key, direction] : m_Directions) FinishDirection(key, direction);
  m_Directions.clear();
  m_Traffic.encryptedConnections += m_Encrypted.size();
  m_Encrypted.clear();
}

void Streams::FinishDirection(const std::string& key, Direction& direction) {
  std::vector<Piece>& pieces = direction.pieces;
  if (pieces.empty()) return;
  std::stable_sort(pieces.begin(), pieces.end(),
                   [](const Piece& a, const Piece& b) { return a.at < b.at; });
  Cutter cutter({{}, direction.from, direction.to}, m_Traffic);
  std::size_t gaps = 0;
  Run run;
  run.isBegin = direction.hasBegin;
  std::int64_t end = direction.hasBegin ? direction.begin : pieces.front().at;
  bool looksEncrypted = false;
  Time time;
  for (const Piece& piece : pieces) {
    const std::string_view bytes =
        std::string_view(direction.bytes).substr(piece.offset, piece.size);
    const auto size = static_cast<std::int64_t>(piece.size);
    if (piece.at + size <= end) continue;  // sent again
    if (piece.at > end) {
      ++gaps;
      run.endsInGap = true;
      cutter.Cut(run);
      run = Run();
      end = piece.at;
    }
    looksEncrypted = looksEncrypted || IsEncrypted(bytes);
    // Nothing is known to whom it is sent before what was sent earlier.
    time = std::max(time, piece.time);
    run.times.emplace_back(run.text.size(), time);
    run.text += bytes.substr(static_cast<std::size_t>(end - piece.at));
    end = piece.at + size;
  }
  cutter.Cut(run);
  // A capture may begin within a record; others begin with later segments.
  const bool isEncrypted =
      cutter.IsEncryptedFromHere() || (looksEncrypted && !cutter.HasMessages());
  if (isEncrypted) m_Encrypted.insert(ConnectionOf(key, direction.connection));
  if (!isEncrypted || cutter.HasMessages()) m_Traffic.gaps += gaps;
  cutter.CountSkipped();
}
