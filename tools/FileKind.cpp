#include "FileKind.h"

#include "Text.h"

namespace {

using namespace std::string_view_literals;

struct Mark {
  std::string_view bytes;  // that such a file begins with
  const char* kind;
};
constexpr Mark kMarks[] = {
    {"\x1f\x8b", "a gzip file"},
    {"BZh", "a bzip2 file"},
    {"\xfd"
     "7zXZ\0"sv,
     "an xz file"},
    {"\x28\xb5\x2f\xfd", "a Zstandard file"},
    {"PK\x03\x04", "a ZIP file"},
    {"PK\x05\x06", "a ZIP file"},
    {"7z\xbc\xaf\x27\x1c", "a 7-Zip file"},
    {"\x7f"
     "ELF",
     "an ELF binary"},
    {"\x89PNG\r\n\x1a\n", "a PNG image"},
    {"\xff\xd8\xff", "a JPEG image"},
    {"GIF8", "a GIF image"},
    {"%PDF-", "a PDF document"},
    {"SQLite format 3\0"sv, "an SQLite database"},
    {"\xff\xfe\0\0"sv, "UTF-32 text"},
    {"\0\0\xfe\xff"sv, "UTF-32 text"},
};

// The first character, after white space, of a text that begins with a mark of UTF-16; 0 for none.
char FirstOfUtf16(std::string_view text) {
  const bool isLittle = StartsWith(text, "\xff\xfe");
  if (!isLittle && !StartsWith(text, "\xfe\xff")) return '\0';
  for (std::size_t at = 2; at + 1 < text.size(); at += 2) {
    const char low = text[isLittle ? at : at + 1];
    if (text[isLittle ? at + 1 : at] != '\0') return '?';
    if (low != ' ' && low != '\t' && low != '\r' && low != '\n') return low ? low : '?';
  }
  return '?';
}

// Whether it is an object or a list of JSON. A log may have a line that begins with a bracket.
bool IsJson(std::string_view text) {
  if (StartsWith(text, "\xef\xbb\xbf")) text.remove_prefix(3);
  const std::size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos || (text[begin] != '{' && text[begin] != '[')) return false;
  const bool isList = text[begin] == '[';
  const std::size_t next = text.find_first_not_of(" \t\r\n", begin + 1);
  const std::size_t last = text.find_last_not_of(" \t\r\n");
  if (next == std::string_view::npos || text[last] != (isList ? ']' : '}')) return false;
  constexpr std::string_view kBeginsEntry = "{[\"]";
  return isList ? kBeginsEntry.find(text[next]) != std::string_view::npos
                : text[next] == '"' || next == last;
}

}  // namespace

const char* KindOfFile(std::string_view text) {
  for (const Mark& mark : kMarks) {
    if (StartsWith(text, mark.bytes)) return mark.kind;
  }
  const char first = FirstOfUtf16(text);
  if (first && first != '<') return "UTF-16 text that is no XML";
  if (text.size() > 262 && text.substr(257, 5) == "ustar" && text[0] != '<') return "a tar file";
  return IsJson(text) ? "JSON" : nullptr;
}
