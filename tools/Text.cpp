#include "Text.h"

#include <cctype>

namespace {

constexpr char kDigits[] = "0123456789abcdef";

void AppendHex(std::string_view bytes, std::string& to) {
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    to += "\\x";
    to += kDigits[byte / 16];
    to += kDigits[byte % 16];
  }
}

// U+0080 to U+009F: terminals may take them for commands.
bool IsControlPair(std::string_view character) {
  return character.size() == 2 && character[0] == '\xc2' &&
         static_cast<unsigned char>(character[1]) < 0xa0;
}

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

// `text` escaped, but the characters of `plain` unchanged and those of `marked` after a backslash.
std::string EscapeWith(std::string_view text, std::string_view plain, std::string_view marked) {
  std::string escaped;
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    const std::string_view character = text.substr(0, size ? size : 1);
    text.remove_prefix(character.size());
    const char c = character[0];
    if (plain.find(c) != std::string_view::npos) {
      escaped += c;
    } else if (c == '\n') {
      escaped += "\\n";
    } else if (c == '\t') {
      escaped += "\\t";
    } else if (marked.find(c) != std::string_view::npos) {
      escaped += '\\';
      escaped += c;
    } else if (size == 0 || IsControl(c) || IsControlPair(character)) {
      AppendHex(character, escaped);
    } else {
      escaped += character;
    }
  }
  return escaped;
}

}  // namespace

std::size_t CharacterSize(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return 1;
  const std::size_t size = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  if (lead < 0xc2 || lead > 0xf4 || text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xc0) != 0x80) return 0;
  }
  const auto second = static_cast<unsigned char>(text[1]);
  const bool overlong = (lead == 0xe0 && second < 0xa0) || (lead == 0xf0 && second < 0x90);
  const bool surrogate = lead == 0xed && second >= 0xa0;
  const bool tooLarge = lead == 0xf4 && second >= 0x90;
  return overlong || surrogate || tooLarge ? 0 : size;
}

std::string Escape(std::string_view text) { return EscapeWith(text, "", "\\"); }
std::string Quote(std::string_view text) { return '"' + EscapeWith(text, "", "\\\"") + '"'; }
std::string EscapeControls(std::string_view text) { return EscapeWith(text, "\n\t", ""); }

std::string_view CutShort(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t size = most;
  while (size > most - 4 && (static_cast<unsigned char>(text[size]) & 0xc0) == 0x80) --size;
  return text.substr(0, size);
}

std::string QuoteShort(std::string_view text, std::size_t most) {
  return Quote(CutShort(text, most)) + (text.size() > most ? "..." : "");
}

std::string Count(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

std::string JsonQuote(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    const std::string_view character = text.substr(0, size ? size : 1);
    text.remove_prefix(character.size());
    const char c = character[0];
    if (size == 0) {
      quoted += "\\ufffd";
    } else if (c == '"' || c == '\\') {
      quoted += '\\';
      quoted += c;
    } else if (IsControl(c) || IsControlPair(character)) {
      const auto code = static_cast<unsigned char>(character.back());
      quoted += "\\u00";
      quoted += kDigits[code / 16];
      quoted += kDigits[code % 16];
    } else {
      quoted += character;
    }
  }
  return quoted + '"';
}

bool StartsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

bool EndsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n";
  const std::size_t begin = text.find_first_not_of(kSpace);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}
