// How output is made easy on the eyes: colours, and the line of what is refused.
#ifndef ZTXML_TOOLS_COLOUR_H
#define ZTXML_TOOLS_COLOUR_H

#include <iosfwd>
#include <optional>
#include <string>

#include "Document.h"

enum class Colour { kRed, kGreen, kYellow, kCyan };
enum class ColourUse { kAuto, kAlways, kNever };

/// What the command line asks for.
struct Style {
  ColourUse colours = ColourUse::kAuto;  ///< kAuto: on a terminal, unless NO_COLOR is set
  std::optional<std::size_t> context;    ///< lines before one that is refused; neighbours in "diff"
};
/// To be called before anything is printed.
void SetStyle(const Style& style);
const Style& GetStyle();

/// `text` for `to`, which is Out() or Err().
std::string Coloured(const std::string& text, Colour colour, const std::ostream& to);

/// The line of the document that has the place `at`, with a caret under it, as lines for `to`: on
/// a terminal, or where context was asked for; else "".
std::string Excerpt(const Document& document, Position at, const std::ostream& to);

/// Likewise, wherever it goes, with so many lines before it.
std::string Excerpt(const Document& document, Position at, std::size_t lines,
                    const std::string& caret);
/// The text in UTF-8; what is in no known encoding as it stands.
std::string DecodedTextOf(const Document& document);

/// Reports why a document was refused, with its line. Returns the status.
int Refuse(const Document& document, const Failure& failure, ExitStatus status = kCannotRead);

#endif  // ZTXML_TOOLS_COLOUR_H
