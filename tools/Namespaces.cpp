// ztxml namespaces: the namespace declarations of a document.
#include <iostream>

#include "Commands.h"
#include "Locate.h"
#include "Read.h"
#include "Text.h"

int PrintNamespaces(const Document& document) {
  Failure failure;
  if (!Parse(document, nullptr, failure)) return Refuse(document.name, failure);
  const Namespaces namespaces(document);
  if (!namespaces.get()) {
    const XMLSchemaInfo& schema = *XMLFactory::getSchemaInfo(XML_SCHEMA_NAMESPACE_RETRIEVAL);
    return Refuse(document.name, WhyRefused(document, schema, nullptr));
  }
  for (const Declaration& declared : namespaces.List()) {
    std::cout << (declared.prefix ? Escape(declared.prefix) : "(default)") << '\t'
              << Escape(declared.uri) << '\n';
  }
  return kDone;
}
