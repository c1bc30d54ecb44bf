// ztxml namespaces: the namespace declarations of a document.
#include <iostream>

#include "Commands.h"

Namespaces::Namespaces(const Document& document) {
  const ContextPtr context(XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL));
  if (context) m_Tree = ReadTree(*context, document);
}

int PrintNamespaces(const Document& document) {
  if (!Parse(document, nullptr)) return kCannotRead;
  const Namespaces namespaces(document);
  if (!namespaces.get()) {
    Complain(document.name, "schema decoder: the namespaces cannot be read");
    return kCannotRead;
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
