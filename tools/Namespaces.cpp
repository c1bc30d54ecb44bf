// ztxml namespaces: the namespace declarations of a document.
#include <iostream>

#include "Commands.h"
#include "Read.h"
#include "Text.h"

int PrintNamespaces(const Document& document) {
  Failure failure;
  if (!Parse(document, nullptr, failure)) return Refuse(document.name, failure);
  const Namespaces namespaces(document);
  if (!namespaces.get()) return Refuse(document.name, {"schema decoder", "out of memory"});
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
