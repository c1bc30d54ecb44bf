// Start lines and headers of messages: SIP (RFC 3261), HTTP (RFC 9112), MIME (RFC 2045).
#ifndef ZTXML_TOOLS_HEADERS_H
#define ZTXML_TOOLS_HEADERS_H

#include <string>
#include <string_view>

/// Cuts the next line off `text`, and its end (LF or CRLF) off the line.
std::string_view NextLine(std::string_view& text);

/// Whether `text` begins with a start line. With something of a log before it, on its line, it is
/// one if a header is on the next line.
bool BeginsMessage(std::string_view text);

/// The name of a header line in lower case, compact forms in full; "" when it is none.
std::string HeaderName(std::string_view line);

/// What matters of an entity's headers; "" for none.
struct Headers {
  std::string type;      ///< of the content, with its parameters
  std::string length;    ///< of the content
  std::string transfer;  ///< its transfer encoding in MIME
  std::string encoding;  ///< a list
  std::string chunks;    ///< its transfer encoding in HTTP, a list
  std::string callId;    ///< of a message; Find does not know it, because it says nothing of a body

  /// The member for the header that is called `name`, or null.
  std::string* Find(std::string_view name);
  /// Whether it is a list, which several headers make together.
  bool IsList(const std::string* member) const { return member == &encoding || member == &chunks; }
};

/// Whether `text` begins with headers, before a blank line or a start line, of which one is known.
bool BeginsEntity(std::string_view text);

/// A content type: the type itself in lower case, and the boundary of a multipart one.
struct ContentType {
  std::string type;
  std::string boundary;

  bool IsMultipart() const;
  bool IsXml() const;
  /// Whether it is a message with headers of its own.
  bool IsMessage() const { return type == "message/cpim" || type == "message/rfc822"; }
};

bool ParseContentType(std::string_view text, ContentType& parsed);

#endif  // ZTXML_TOOLS_HEADERS_H
