// Captured messages: SIP or HTTP with headers and a body, or a MIME entity. Their XML bodies are
// the documents, also inside multipart and CPIM bodies (RFC 2046, RFC 3862).
#ifndef ZTXML_TOOLS_CAPTURE_H
#define ZTXML_TOOLS_CAPTURE_H

#include <string_view>
#include <vector>

#include "Document.h"

/// Whether `text` begins like a message, with a request line, a status line or a header.
bool IsCapture(std::string_view text);

/// Adds the XML bodies of the message `capture`, of which there is at least one, with their content
/// types. False with the failure.
bool ReadCapture(const Document& capture, std::vector<Document>& bodies, Failure& failure);

#endif  // ZTXML_TOOLS_CAPTURE_H
