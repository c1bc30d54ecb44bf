// Reading, writing and making objects without a context: what the C++ interface (document.h) is
// made of. Programs call that instead.
#ifndef ZTXML_INCLUDE_ZTCALLS_H
#define ZTXML_INCLUDE_ZTCALLS_H

#include "ztxml/XMLContext.h"

struct ZtDocument;
struct ZtElementType;

/// Reads the `size` bytes of `text` as `settings` say. Returns the root, an object of `type` (null:
/// of any that the document begins with), for XMLFactory::DeleteElement, or null and why in
/// `error`. In the exact profile documents that have the namespaces of their texts are read and
/// written with those: they go to `namespaces`, for XMLFactory::DeleteElement after the root, else
/// null does.
ZT_API XMLElement* ZtReadDocument(const ZtDocument& document, const ZtElementType* type,
                                  const ZtSettings& settings, const char* text, std::size_t size,
                                  XMLElement*& namespaces, ztxml::Error& error);
/// The document of `root`, for ZtFreeText, with its size in bytes; null and why in `error`, also
/// when there is no root. `namespaces` are those of its reading or null. A text of the exact
/// profile that is cut, or longer than the limit, is given as it is, and `error` says so beside it.
ZT_API char* ZtWriteDocument(const ZtDocument& document, const ZtSettings& settings,
                             XMLElement* root, XMLElement* namespaces, std::size_t& size,
                             ztxml::Error& error);
/// As ZtWriteDocument: the document that `root` was read from, with what has changed.
ZT_API char* ZtUpdateDocument(const ZtDocument& document, const ZtSettings& settings,
                              XMLElement* root, std::size_t& size, ztxml::Error& error);
/// Frees what these functions return as text; null is ignored.
ZT_API void ZtFreeText(char* text);

/// Tells what of the document that `root` was read from the types do not keep. False when that was
/// not kept, or without memory.
ZT_API bool ZtFindLosses(const XMLElement& root, ZtLossHandler handler, void* context);

/// A new object of a type, the caller's until a parent takes it, with its schema's defaults if that
/// is asked for; null, and that in `error` unless it is null, without memory.
ZT_API XMLElement* ZtMakeObject(const ZtElementType& type, bool withDefaults,
                                ztxml::Error* error = nullptr);

#endif  // ZTXML_INCLUDE_ZTCALLS_H
