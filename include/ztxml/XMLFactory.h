// The entry to the library: contexts by schema.
#ifndef ZTXML_INCLUDE_XMLFACTORY_H
#define ZTXML_INCLUDE_XMLFACTORY_H

#include "ztxml/XMLContext.h"
#include "ztxml/XMLSchemaInfo.h"

/// Makes contexts, and frees what the library handed to a caller.
class ZT_API XMLFactory {
 public:
  /// A new context of the schema `id`, or null for an id that has none and when out of memory. Free
  /// it with deleteContext.
  static XMLContext* newInstance(eXMLSchemaID id);
  /// Deletes a context with the workers that it made; null is ignored.
  static void deleteContext(XMLContext* context);
  /// Deletes an element with all below it; null is ignored.
  static void DeleteElement(XMLElement* element);
  /// The schema `id`, or null when there is no context for it.
  static const XMLSchemaInfo* getSchemaInfo(eXMLSchemaID id);
};

#endif  // ZTXML_INCLUDE_XMLFACTORY_H
