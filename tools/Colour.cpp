#include "Colour.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "Output.h"
#include "Text.h"
#include "text/ZtEncoding.h"

namespace {

Style s_Style;
// Found out once: every line asks.
bool s_bErrColours = false;
bool s_bOutColours = false;

bool IsTerminal(int descriptor) { return isatty(descriptor); }
bool IsTerminal(const std::ostream& to) {
  return IsTerminal(IsStandardError(to) ? STDERR_FILENO : STDOUT_FILENO);
}

bool HasColours(int descriptor) {
  if (s_Style.colours != ColourUse::kAuto) return s_Style.colours == ColourUse::kAlways;
  const char* const refused = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool isDumb = terminal && std::strcmp(terminal, "dumb") == 0;
  return IsTerminal(descriptor) && !(refused && *refused) && !isDumb;
}

// The bytes of the character at the beginning of a text that is not empty.
std::size_t StepOf(std::string_view text) {
  const std::size_t size = CharacterSize(text);
  return size ? size : 1;
}

// What of a line is shown, with the caret's column in it: all of a short one.
struct Window {
  std::string text;
  std::size_t caret = 0;  // from 0
};
Window WindowOf(std::string_view line, std::size_t column) {
  constexpr std::size_t kWidth = 76;
  constexpr std::size_t kBefore = 50;
  if (EndsWith(line, "\r")) line.remove_suffix(1);
  Window window;
  std::size_t at = 1;  // the column
  std::size_t width = 0;
  const std::size_t first = column > kWidth ? column - kBefore : 1;
  if (first > 1) window.text = "...";
  for (; !line.empty() && width < kWidth; ++at) {
    const std::string_view character = line.substr(0, StepOf(line));
    line.remove_prefix(character.size());
    if (at < first) continue;
    if (at == column) window.caret = window.text.size();
    // One column each, so that the caret stands where it should.
    const bool isPlain =
        CharacterSize(character) && EscapeControls(character) == character && character != "\t";
    if (at < column) {
      window.text += isPlain ? std::string(character) : std::string(1, ' ');
    } else {
      window.text += character == "\t" ? " " : EscapeControls(character);
    }
    ++width;
  }
  if (at <= column) window.caret = std::string::npos;
  if (!line.empty()) window.text += "...";
  return window;
}

// The columns that a text in UTF-8 takes, each character one.
std::size_t WidthOf(std::string_view text) { return PositionAfter(text, {1, 1}).column - 1; }

}  // namespace

void SetStyle(const Style& style) {
  s_Style = style;
  s_bErrColours = HasColours(STDERR_FILENO);
  s_bOutColours = HasColours(STDOUT_FILENO);
}
const Style& GetStyle() { return s_Style; }

std::string Coloured(const std::string& text, Colour colour, const std::ostream& to) {
  if (!(IsStandardError(to) ? s_bErrColours : s_bOutColours)) return text;
  const char* code = "31";
  if (colour == Colour::kGreen) code = "32";
  if (colour == Colour::kYellow) code = "33";
  if (colour == Colour::kCyan) code = "36";
  return std::string("\x1b[") + code + 'm' + text + "\x1b[0m";
}

std::string DecodedTextOf(const Document& document) {
  const ZtPiece input(document.text.data(), document.text.size());
  ZtTextForm form;
  std::size_t at = 0;
  const bool isKnown = ZtFindForm(input, form, at) == ZtEncodingFault::kNone;
  if (!isKnown || form.encoding == ZtEncoding::kUtf8) return document.text;
  std::string text(ZtDecodedSize(input, form), '\0');
  return ZtDecode(input, form, text.data(), at) == ZtEncodingFault::kNone ? text : document.text;
}

std::string Excerpt(const Document& document, Position at, const std::ostream& to) {
  if (!s_Style.context && !IsTerminal(to)) return "";
  return Excerpt(document, at, s_Style.context.value_or(0), Coloured("^", Colour::kGreen, to));
}

std::string Excerpt(const Document& document, Position at, std::size_t lines,
                    const std::string& caret) {
  if (at.line < document.start.line) return "";
  const std::string text = DecodedTextOf(document);
  std::string_view rest = text;
  const std::size_t before = std::min(lines, at.line - document.start.line);
  std::string excerpt;
  for (std::size_t line = document.start.line; line <= at.line; ++line) {
    const std::size_t size = std::min(rest.find('\n'), rest.size());
    const bool isFirst = line == document.start.line;
    const std::size_t skipped = isFirst ? document.start.column - 1 : 0;
    if (line + before >= at.line) {
      const bool isPlace = line == at.line;
      const std::size_t column = isPlace && at.column > skipped ? at.column - skipped : 1;
      const Window window = WindowOf(rest.substr(0, size), column);
      excerpt += "  " + window.text + '\n';
      if (isPlace) {
        const std::size_t width = WidthOf(std::string_view(window.text).substr(0, window.caret));
        excerpt += std::string(2 + width, ' ') + caret + '\n';
      }
    }
    if (size == rest.size() && line < at.line) return excerpt;
    rest.remove_prefix(std::min(size + 1, rest.size()));
  }
  return excerpt;
}

int Refuse(const Document& document, const Failure& failure, ExitStatus status) {
  Refuse(document.name, failure);
  Err() << Excerpt(document, failure.at, Err());
  return status;
}
