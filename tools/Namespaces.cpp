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
  ZtSingleElementList* list = namespaces.get()->getNameSpaceInfo();
  for (ZtListNode* node = list ? list->GetPtrToListHead() : nullptr; node; node = node->next) {
    const auto* declared = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    if (!declared) continue;
    const char* prefix = declared->getName();
    const char* uri = declared->getValue();
    std::cout << (prefix ? Escape(prefix) : "(default)") << '\t' << Escape(uri ? uri : "") << '\n';
  }
  return kDone;
}
