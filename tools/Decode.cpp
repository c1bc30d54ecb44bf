#include "Decode.h"

#include <algorithm>
#include <array>
#include <limits>

#define ZLIB_CONST
#include <zlib.h>

#include "Text.h"

namespace {

class Decoder {
 public:
  Decoder(std::string_view coded, std::size_t most, std::string& text)
      : m_Rest(coded), m_iMost(most), m_Text(text) {}

  bool Base64();
  bool QuotedPrintable();
  bool Chunked();
  bool Compressed(bool mayLackHeader);

  const std::string& Reason() const { return m_Reason; }
  std::string_view Rest() const { return m_Rest; }

 private:
  bool Fail(const std::string& reason) {
    m_Reason = reason;
    return false;
  }
  bool Append(std::string_view bytes) {
    if (bytes.size() > m_iMost - m_Text.size()) {
      return Fail("it has more than " + std::to_string(m_iMost) + " bytes when it is decoded");
    }
    m_Text += bytes;
    return true;
  }
  bool ChunkSize(std::size_t& size);
  bool Inflate(int window);

  std::string_view m_Rest;  // what has not been decoded yet
  const std::size_t m_iMost;
  std::string& m_Text;
  std::string m_Reason;
};

// The number that a digit stands for; 64 for none.
unsigned Base64Digit(char c) {
  if (c >= 'A' && c <= 'Z') return static_cast<unsigned>(c - 'A');
  if (c >= 'a' && c <= 'z') return static_cast<unsigned>(c - 'a') + 26;
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0') + 52;
  return c == '+' ? 62 : c == '/' ? 63 : 64;
}

// 16 for none.
unsigned HexDigit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  return 16;
}

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool Decoder::Base64() {
  unsigned bits = 0;
  unsigned digits = 0;
  while (!m_Rest.empty() && m_Rest[0] != '=') {
    const char c = m_Rest[0];
    if (!IsSpace(c)) {
      const unsigned digit = Base64Digit(c);
      if (digit == 64) return Fail("no base64: " + QuoteShort(m_Rest));
      bits = bits << 6 | digit;
      if (++digits == 4) {
        const char bytes[] = {static_cast<char>(bits >> 16), static_cast<char>(bits >> 8),
                              static_cast<char>(bits)};
        if (!Append({bytes, 3})) return false;
        bits = 0;
        digits = 0;
      }
    }
    m_Rest.remove_prefix(1);
  }
  // Without the padding it is clear, too, what is meant.
  if (digits == 1) return Fail("the base64 ends within a byte");
  if (digits == 3 &&
      !Append(std::string{static_cast<char>(bits >> 10), static_cast<char>(bits >> 2)}))
    return false;
  if (digits == 2 && !Append(std::string(1, static_cast<char>(bits >> 4)))) return false;
  while (!m_Rest.empty() && (m_Rest[0] == '=' || IsSpace(m_Rest[0]))) m_Rest.remove_prefix(1);
  return true;
}

bool Decoder::QuotedPrintable() {
  while (!m_Rest.empty()) {
    const std::size_t end = m_Rest.find('\n');
    std::string_view line = m_Rest.substr(0, end);
    std::string_view lineEnd = m_Rest.substr(line.size(), end == std::string_view::npos ? 0 : 1);
    if (EndsWith(line, "\r")) {
      lineEnd = m_Rest.substr(line.size() - 1, 1 + lineEnd.size());
      line.remove_suffix(1);
    }
    m_Rest.remove_prefix(line.size() + lineEnd.size());
    // Blanks at the end of a line were added on the way.
    while (EndsWith(line, " ") || EndsWith(line, "\t")) line.remove_suffix(1);
    while (!line.empty()) {
      const std::size_t plain = std::min(line.find('='), line.size());
      if (!Append(line.substr(0, plain))) return false;
      line.remove_prefix(plain);
      if (line == "=") break;  // the line goes on
      if (line.empty()) continue;
      const unsigned high = line.size() > 2 ? HexDigit(line[1]) : 16;
      const unsigned low = line.size() > 2 ? HexDigit(line[2]) : 16;
      if (high == 16 || low == 16) return Fail("no quoted-printable: " + QuoteShort(line));
      if (!Append(std::string(1, static_cast<char>(high << 4 | low)))) return false;
      line.remove_prefix(3);
    }
    if (line != "=" && !Append(lineEnd)) return false;
  }
  return true;
}

// Cuts the line with the size of the next chunk off, without its extensions.
bool Decoder::ChunkSize(std::size_t& size) {
  const std::size_t end = m_Rest.find('\n');
  if (end == std::string_view::npos) return Fail("it ends without its last chunk");
  const std::string_view line = m_Rest.substr(0, end);
  const std::string_view digits = Trim(line.substr(0, line.find(';')));
  const bool isHex =
      std::all_of(digits.begin(), digits.end(), [](char c) { return HexDigit(c) < 16; });
  if (digits.empty() || !isHex) return Fail("no size of a chunk: " + QuoteShort(Trim(line)));
  size = 0;
  for (const char c : digits) {
    if (size > std::numeric_limits<std::size_t>::max() / 32) break;
    size = size * 16 + HexDigit(c);
  }
  m_Rest.remove_prefix(end + 1);
  return true;
}

bool Decoder::Chunked() {
  for (;;) {
    std::size_t size = 0;
    if (!ChunkSize(size)) return false;
    if (size == 0) break;
    if (size > m_Rest.size()) return Fail("it ends within a chunk");
    if (!Append(m_Rest.substr(0, size))) return false;
    m_Rest.remove_prefix(size);
    if (StartsWith(m_Rest, "\r")) m_Rest.remove_prefix(1);
    if (!StartsWith(m_Rest, "\n")) return Fail("a chunk has not the size that is told");
    m_Rest.remove_prefix(1);
  }
  // Trailers, up to a blank line.
  while (!m_Rest.empty()) {
    const std::size_t end = m_Rest.find('\n');
    const bool isLast = Trim(m_Rest.substr(0, end)).empty();
    m_Rest.remove_prefix(end == std::string_view::npos ? m_Rest.size() : end + 1);
    if (isLast) break;
  }
  return true;
}

// Of gzip there may be several members, one after another.
bool Decoder::Compressed(bool mayLackHeader) {
  constexpr int kAnyHeader = 15 + 32;
  const std::string_view start = m_Rest;
  bool inflated = Inflate(kAnyHeader);
  // "deflate" has a header by the standard and none by some who send it.
  if (!inflated && mayLackHeader && m_Text.empty()) {
    m_Rest = start;
    m_Reason.clear();
    inflated = Inflate(-15);
  }
  while (inflated && StartsWith(m_Rest, "\x1f\x8b")) inflated = Inflate(kAnyHeader);
  return inflated;
}

bool Decoder::Inflate(int window) {
  z_stream stream = {};
  if (inflateInit2(&stream, window) != Z_OK) return Fail("memory is lacking");
  std::array<Bytef, 1 << 14> buffer;
  int result = Z_OK;
  bool fits = true;
  while (result == Z_OK && fits) {
    const std::size_t given = std::min<std::size_t>(m_Rest.size(), 1U << 30);
    stream.next_in = reinterpret_cast<const Bytef*>(m_Rest.data());
    stream.avail_in = static_cast<uInt>(given);
    stream.next_out = buffer.data();
    stream.avail_out = static_cast<uInt>(buffer.size());
    result = inflate(&stream, Z_NO_FLUSH);
    m_Rest.remove_prefix(given - stream.avail_in);
    fits = Append({reinterpret_cast<const char*>(buffer.data()), buffer.size() - stream.avail_out});
  }
  inflateEnd(&stream);
  if (!fits) return false;
  if (result == Z_STREAM_END) return true;
  return Fail(result == Z_BUF_ERROR ? "the compressed data are cut"
                                    : "the compressed data are damaged");
}

}  // namespace

bool IsIdentity(std::string_view name) {
  return name.empty() || name == "7bit" || name == "8bit" || name == "binary" || name == "identity";
}

bool Decode(std::string_view name, std::string_view coded, std::size_t most, std::string& text,
            std::string_view& rest, std::string& reason) {
  text.clear();
  Decoder decoder(coded, most, text);
  bool decoded = false;
  if (name == "base64") {
    decoded = decoder.Base64();
  } else if (name == "quoted-printable") {
    decoded = decoder.QuotedPrintable();
  } else if (name == "chunked") {
    decoded = decoder.Chunked();
  } else if (name == "gzip" || name == "x-gzip" || name == "deflate") {
    decoded = decoder.Compressed(name == "deflate");
  } else {
    reason = "this encoding is not supported";
    return false;
  }
  reason = decoder.Reason();
  rest = decoder.Rest();
  return decoded;
}
