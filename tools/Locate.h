// Why the library refuses a document, and where. Its parser and decoders report no places: another
// parser tells what the document does wrong or what of XML it uses, and a decoder is given the text
// once more, in pieces that end after each tag, until it says no.
#ifndef ZTXML_TOOLS_LOCATE_H
#define ZTXML_TOOLS_LOCATE_H

#include <cstddef>

#include "Document.h"
#include "XMLElement.h"
#include "XMLFactory.h"

/// Where the root element's start tag begins, in a document that the parser takes.
std::size_t RootOffset(const Document& document);

/// Why the parser does not take the document.
Failure WhyNotParsed(const Document& document);

/// Why the decoder of `schema`, told of `namespaces`, gives no tree for a document that the parser
/// takes.
Failure WhyRefused(const Document& document, const XMLSchemaInfo& schema, XMLObject* namespaces);

#endif  // ZTXML_TOOLS_LOCATE_H
