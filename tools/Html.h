// Texts of strangers in a page that is HTML and well-formed XML at once.
#ifndef ZTXML_TOOLS_HTML_H
#define ZTXML_TOOLS_HTML_H

#include <string>
#include <string_view>

/// Adds `text` as the content of an element. Markup is escaped. What cannot be seen, could turn the
/// order of the text around, is not UTF-8 or not allowed in XML stands as \xNN or U+NNNN in an
/// element of the class "raw".
void AppendHtml(std::string& html, std::string_view text);
/// Likewise in an element that keeps lines, where line breaks and tabs stay.
void AppendHtmlLines(std::string& html, std::string_view text);
/// Likewise in a quoted attribute, where no element can be.
void AppendHtmlAttribute(std::string& html, std::string_view text);

/// "text", escaped, in an element with a class.
std::string HtmlElement(const char* element, const char* name, std::string_view text);

#endif  // ZTXML_TOOLS_HTML_H
