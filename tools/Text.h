// Texts of strangers as the tool prints them.
#ifndef ZTXML_TOOLS_TEXT_H
#define ZTXML_TOOLS_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

/// The bytes of the character that `text`, not empty, begins with; 0 when its first byte begins no
/// character of UTF-8.
std::size_t CharacterSize(std::string_view text);

/// `text` on one line and harmless to a terminal: control characters, backslashes and bytes that
/// are not UTF-8 as \n, \t, \\ or \xNN.
std::string Escape(std::string_view text);
/// `text` escaped as by Escape, in double quotes, with those inside as \".
std::string Quote(std::string_view text);
/// The beginning of `text`, about `most` bytes of it if it is longer, no character of it in parts.
std::string_view CutShort(std::string_view text, std::size_t most);
/// `text` in quotes, cut as by CutShort.
std::string QuoteShort(std::string_view text, std::size_t most = 60);
/// `text` escaped as by Escape, except line breaks, tabs and backslashes.
std::string EscapeControls(std::string_view text);
/// `text` as a string of JSON. Each byte that is not UTF-8 becomes U+FFFD, since JSON cannot hold
/// it.
std::string JsonQuote(std::string_view text);

/// "1 message", "2 messages".
std::string Count(std::size_t count, const char* one, const char* several);

bool StartsWith(std::string_view text, std::string_view begin);
bool EndsWith(std::string_view text, std::string_view end);
std::string LowerCase(std::string_view text);
/// `text` without white space at both ends.
std::string_view Trim(std::string_view text);

#endif  // ZTXML_TOOLS_TEXT_H
