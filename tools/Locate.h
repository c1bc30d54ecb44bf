// Why the library refuses a document, and where. Its parser and decoders report no places, so
// another parser tells what is wrong or not supported, and a decoder gets the text again, tag by
// tag, until it refuses one.
#ifndef ZTXML_TOOLS_LOCATE_H
#define ZTXML_TOOLS_LOCATE_H

#include <cstddef>

#include "Document.h"
#include "ztxml/XMLElement.h"
#include "ztxml/XMLFactory.h"

/// Where the root element's start tag begins, in a document that the parser takes.
std::size_t RootOffset(const Document& document);

/// Why the parser does not take the document.
Failure WhyNotParsed(const Document& document);

/// Why the decoder of `schema`, told of `namespaces`, gives no tree for a document that the parser
/// takes.
Failure WhyRefused(const Document& document, const XMLSchemaInfo& schema, XMLObject* namespaces);

#endif  // ZTXML_TOOLS_LOCATE_H
