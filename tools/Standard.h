// Documents as the library's strict reader has them: in their own encoding, well formed and with
// namespaces.
#ifndef ZTXML_TOOLS_STANDARD_H
#define ZTXML_TOOLS_STANDARD_H

#include <cstddef>

#include "Document.h"
#include "ztxml/XMLFactory.h"

/// The place in its file that is `line` and `column` of the document.
Position PositionIn(const Document& document, std::size_t line, std::size_t column);

/// The schema by which the standard profile reads the document: `wanted`, or when that is null the
/// one that its content type names, or its root element by namespace and local name. Null with the
/// failure when the document is not well formed or no schema's.
const XMLSchemaInfo* FindStandardSchema(const Document& document, const XMLSchemaInfo* wanted,
                                        Failure& failure);

#endif  // ZTXML_TOOLS_STANDARD_H
