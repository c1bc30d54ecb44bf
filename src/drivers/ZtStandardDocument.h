// What the drivers do in the standard profile: they read, write and update a document as a whole.
// Each logs why it fails, and says it in `error` unless that is null.
#ifndef ZTXML_SRC_DRIVERS_ZTSTANDARDDOCUMENT_H
#define ZTXML_SRC_DRIVERS_ZTSTANDARDDOCUMENT_H

#include "base/ZtBuffer.h"
#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLContext.h"

// The root of `text`, the caller's, or null; an object of `type` unless that is null. Without
// `makes` nothing is made, logged or said: only losses are told.
XMLElement* ZtReadStandard(const ZtDocument& document, const ZtSettings& settings, ZtPiece text,
                           ztxml::Error* error, bool makes = true,
                           const ZtElementType* type = nullptr);
// Appends the document; false when it cannot be written.
bool ZtWriteStandard(const ZtDocument& document, const XMLElement& root, ZtBuffer& to,
                     ztxml::Error* error);
// The document that `root` was read from as the tree is now, from __malloc, with its size; null
// when it cannot be written. In UTF-16 two NULs follow it, else one.
char* ZtUpdateStandard(const ZtDocument& document, const ZtSettings& settings, XMLElement& root,
                       std::size_t& size, ztxml::Error* error);

#endif  // ZTXML_SRC_DRIVERS_ZTSTANDARDDOCUMENT_H
