// Undoing what bodies of messages are encoded with.
#ifndef ZTXML_TOOLS_DECODE_H
#define ZTXML_TOOLS_DECODE_H

#include <cstddef>
#include <string>
#include <string_view>

/// Decodes `coded` by the encoding `name`, in lower case: of the content in MIME (RFC 2045) or in
/// HTTP (RFC 9110), or of the transfer in HTTP (RFC 9112). `rest` becomes what comes after the
/// encoded data. False with the reason, also when `text` would have more than `most` bytes.
bool Decode(std::string_view name, std::string_view coded, std::size_t most, std::string& text,
            std::string_view& rest, std::string& reason);

/// Whether the encoding leaves a body as it is.
bool IsIdentity(std::string_view name);

#endif  // ZTXML_TOOLS_DECODE_H
