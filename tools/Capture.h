// Texts with several documents: captured messages, SIP or HTTP with headers and a body, or a MIME
// entity, of which every XML body is one, also inside multipart and CPIM bodies (RFC 2046,
// RFC 3862) and encoded; logs of such messages; documents one after another.
#ifndef ZTXML_TOOLS_CAPTURE_H
#define ZTXML_TOOLS_CAPTURE_H

#include <vector>

#include "Document.h"

/// Adds the documents of `capture` in its order, with the content types of messages: all that have
/// a text; those that cannot be had from their messages, as refused; what is passed over, as
/// skipped or noted. Documents, if there are several, have their numbers in their names. False,
/// with the failure, when there is nothing of all that.
bool ReadCapture(const Document& capture, std::vector<Document>& bodies, Failure& failure);

#endif  // ZTXML_TOOLS_CAPTURE_H
