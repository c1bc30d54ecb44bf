// Finding schemas: by their name or number, by a root element, by a content type.
#ifndef ZTXML_TOOLS_SCHEMAS_H
#define ZTXML_TOOLS_SCHEMAS_H

#include <string>
#include <string_view>
#include <vector>

#include "ztxml/XMLFactory.h"

/// The name in the start tag of the root element, which may have a prefix; empty when there is
/// none.
std::string_view RootName(const std::string& text);

/// The schema with the given name, in any case, or number; null for none.
const XMLSchemaInfo* FindSchema(const std::string& nameOrId);
/// The names of all schemas, and with `roots` of their root elements.
std::vector<std::string> NamesOfSchemas(bool roots);
/// The schema that has the root element `localName`, or null.
const XMLSchemaInfo* FindSchemaOfRoot(const std::string& localName);
/// The schema of bodies of the content type `type`, in lower case; of several schemas the one with
/// the root element `localName`. Null when the type is not known.
const XMLSchemaInfo* FindSchemaOfType(const std::string& type, const std::string& localName);
/// Whether the schema is known to have the root element `localName`.
bool HasRoot(const XMLSchemaInfo& schema, const std::string& localName);

#endif  // ZTXML_TOOLS_SCHEMAS_H
