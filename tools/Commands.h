// The commands. Each returns the exit status, after a message when it is not kDone.
#ifndef ZTXML_TOOLS_COMMANDS_H
#define ZTXML_TOOLS_COMMANDS_H

#include <string>

#include "Document.h"
#include "Log.h"
#include "XMLSchemaNameSpaceRetrieval.h"

/// The schema with the given name, in any case, or number; null for none.
const XMLSchemaInfo* FindSchema(const std::string& nameOrId);
/// The schema that has the root element `localName`, or null.
const XMLSchemaInfo* FindSchemaOfRoot(const std::string& localName);
/// Whether the schema is known to have the root element `localName`.
bool HasRoot(const XMLSchemaInfo& schema, const std::string& localName);

/// The namespace declarations of a document, as the library retrieves them; `get` is null when it
/// cannot.
class Namespaces {
 public:
  explicit Namespaces(const Document& document);
  zt_schema_namespace_retrieval* get() const {
    return static_cast<zt_schema_namespace_retrieval*>(m_Tree.get());
  }

 private:
  ElementPtr m_Tree;
};

int PrintSchemas();
int PrintEvents(const Document& document);
int PrintNamespaces(const Document& document);
/// Reads and writes the document by `schema`, or by its root element when that is null.
int RoundTrip(const Document& document, const XMLSchemaInfo* schema, const Log& log);

#endif  // ZTXML_TOOLS_COMMANDS_H
