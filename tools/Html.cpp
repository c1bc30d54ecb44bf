#include "Html.h"

#include <cstdint>
#include <cstdio>

#include "Text.h"

namespace {

enum class Place { kText, kLines, kAttribute };

std::uint32_t CodePointOf(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return lead;
  std::uint32_t code = lead & (0x7fU >> character.size());
  for (const char c : character.substr(1))
    code = code << 6 | (static_cast<unsigned char>(c) & 0x3f);
  return code;
}

// Controls, also those that turn the direction of a text; what has no width; what XML forbids.
bool IsHidden(std::uint32_t code) {
  if (code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0xad) return true;
  if (code == 0x61c || code == 0x180e || code == 0xfeff) return true;
  return (code >= 0x200b && code <= 0x200f) || (code >= 0x2028 && code <= 0x202e) ||
         (code >= 0x2060 && code <= 0x206f) || (code >= 0xfff9 && code <= 0xfffb) ||
         (code & 0xfffe) == 0xfffe || (code >= 0xe0000 && code <= 0xe007f);
}

void AppendHidden(std::string& html, std::string_view shown, Place place) {
  if (place == Place::kAttribute) {
    html += shown;
  } else {
    html.append("<span class=\"raw\">").append(shown).append("</span>");
  }
}

void Append(std::string& html, std::string_view text, Place place) {
  while (!text.empty()) {
    const std::size_t size = CharacterSize(text);
    const std::string_view character = text.substr(0, size ? size : 1);
    const bool breaksLine = place == Place::kLines && StartsWith(text, "\r\n");
    text.remove_prefix(character.size());
    const char c = character[0];
    const std::uint32_t code = size ? CodePointOf(character) : 0;
    if (breaksLine) continue;
    if (place == Place::kLines && (c == '\n' || c == '\t')) {
      html += c;
    } else if (c == '<') {
      html += "&lt;";
    } else if (c == '>') {
      html += "&gt;";
    } else if (c == '&') {
      html += "&amp;";
    } else if (c == '"') {
      html += "&quot;";
    } else if (c == '\'') {
      html += "&#39;";
    } else if (size == 0 || (code < 0x80 && IsHidden(code))) {
      AppendHidden(html, Escape(character), place);
    } else if (IsHidden(code)) {
      char name[16];
      static_cast<void>(std::snprintf(name, sizeof(name), "U+%04X", static_cast<unsigned>(code)));
      AppendHidden(html, name, place);
    } else {
      html += character;
    }
  }
}

}  // namespace

void AppendHtml(std::string& html, std::string_view text) { Append(html, text, Place::kText); }
void AppendHtmlLines(std::string& html, std::string_view text) {
  Append(html, text, Place::kLines);
}
void AppendHtmlAttribute(std::string& html, std::string_view text) {
  Append(html, text, Place::kAttribute);
}

std::string HtmlElement(const char* element, const char* name, std::string_view text) {
  std::string html = std::string("<") + element + " class=\"" + name + "\">";
  AppendHtml(html, text);
  return html + "</" + element + '>';
}
