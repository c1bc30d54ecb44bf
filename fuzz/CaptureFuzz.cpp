// What the command line tool takes documents from: any bytes, and these as the body of a message,
// by the first byte in one encoding or another, between other messages.
#include <cstdint>
#include <string>
#include <vector>

#define ZLIB_CONST
#include <zlib.h>

#include "Capture.h"
#include "Decode.h"
#include "FileKind.h"
#include "Require.h"
#include "Text.h"

namespace {

std::vector<Document> Read(const std::string& text) {
  Document capture;
  capture.name = "c";
  capture.text = text;
  std::vector<Document> items;
  Failure failure;
  const bool found = ReadCapture(capture, items, failure);
  Require(found != items.empty(), "something is found, or there is a failure", text);
  return items;
}

// Requires that each item tells what it is, and that documents are counted.
void CheckItems(const std::string& text, const std::vector<Document>& items) {
  std::size_t count = 0;
  for (const Document& item : items) count += item.IsDocument();
  std::size_t number = 0;
  const Position end = PositionAfter(text, {1, 1});
  for (const Document& item : items) {
    const bool isText = item.kind == Document::Kind::kText;
    Require(isText != item.text.empty(), "a document has a text", text);
    Require(isText == item.fault.what.empty(), "anything else has a reason", text);
    Require(isText || !(end < item.fault.at), "it is in the file", text);
    const bool isNumbered = item.IsDocument() && count > 1;
    Require(item.name == (isNumbered ? "c#" + std::to_string(++number) : "c"), "numbers",
            item.name);
  }
}

// Documents in a row are all of the text.
void CheckWhole(const std::string& text, const std::vector<Document>& items) {
  const bool hasMessages = text.find(" SIP/") != std::string::npos ||
                           text.find("SIP/2.0 ") != std::string::npos ||
                           text.find("HTTP/1.") != std::string::npos;
  if (hasMessages || !StartsWith(Trim(text), "<")) return;
  std::string together;
  for (const Document& item : items) {
    Require(item.start == PositionAfter(together, {1, 1}), "each has its place", text);
    together += item.text;
  }
  Require(Trim(together) == Trim(text), "nothing is lost of documents in a row", text);
}

std::string Compressed(const std::string& text, bool isGzip) {
  z_stream stream = {};
  deflateInit2(&stream, 1, Z_DEFLATED, isGzip ? 31 : 15, 8, Z_DEFAULT_STRATEGY);
  std::string compressed(deflateBound(&stream, static_cast<uLong>(text.size())), '\0');
  stream.next_in = reinterpret_cast<const Bytef*>(text.data());
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(compressed.data());
  stream.avail_out = static_cast<uInt>(compressed.size());
  deflate(&stream, Z_FINISH);
  compressed.resize(stream.total_out);
  deflateEnd(&stream);
  return compressed;
}

std::string Chunked(const std::string& text, std::size_t size) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string chunks;
  for (std::size_t at = 0; at < text.size(); at += size) {
    const std::string chunk = text.substr(at, size);
    chunks += {kDigits[chunk.size() / 16], kDigits[chunk.size() % 16]};
    chunks += "\r\n" + chunk + "\r\n";
  }
  return chunks + "0\r\n\r\n";
}

// Requires that a body comes out of its message as it went in. In chunks, of which none tells the
// size of all, it could hold a start line.
void CheckBody(const std::string& text, unsigned how) {
  std::string body = text;
  std::string header;
  if (how % 4 == 1) {
    body = Compressed(text, how % 8 == 1);
    header = how % 8 == 1 ? "\r\nContent-Encoding: gzip" : "\r\nContent-Encoding: deflate";
  } else if (how % 4 == 2) {
    std::string decoded;
    std::string reason;
    std::string_view rest;
    Require(Decode("chunked", Chunked(text, 1 + how), text.size(), decoded, rest, reason) &&
                decoded == text && rest.empty(),
            "chunks give the text again", reason);
  }
  const std::string capture = "NOTIFY sip:a SIP/2.0\r\nContent-Type: a/xml\r\nContent-Length: " +
                              std::to_string(body.size()) + header + "\r\n\r\n" + body +
                              "SIP/2.0 200 OK\r\nl: 0\r\n\r\n";
  const std::vector<Document> items = Read(capture);
  if (Trim(text).empty()) return;
  Require(items.size() == 2 && items[0].text == text && items[1].fault.what == "no XML body",
          "a body with a length comes whole", capture);
}

// Requires that encodings end in a text or a reason, within the limit.
void CheckDecoding(const std::string& text) {
  constexpr std::size_t kMost = 10000;
  for (const char* name : {"base64", "quoted-printable", "chunked", "gzip", "deflate"}) {
    std::string decoded;
    std::string reason;
    std::string_view rest;
    const bool isDecoded = Decode(name, text, kMost, decoded, rest, reason);
    Require(isDecoded == reason.empty() && decoded.size() <= kMost, name, text);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<Document> items = Read(text);
  CheckItems(text, items);
  CheckWhole(text, items);
  const char* const kind = KindOfFile(text);
  Require(!kind || *kind, "a kind has a name", text);
  const std::string rest = text.substr(1);
  CheckBody(rest, data[0]);
  CheckDecoding(rest);
  return 0;
}
