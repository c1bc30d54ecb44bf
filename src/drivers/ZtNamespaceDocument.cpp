#include "ztxml/ZtNamespaceDocument.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

int ZtNamespaceContext::SetNamespaceBinder(XMLObject* binder) {
  ZtLog(kZtLogState, Document().source)("<XML Module>: %sContext :: SetNamespaceBinder",
                                        Document().info.name);
  if (!zt_schema_namespace_retrieval::From(binder)) return 0;
  m_pNamespaceBinder = binder;
  return 1;
}

ZtNamespaceMarshaller::ZtNamespaceMarshaller(const ZtDocument& document) {
  if (m_Bindings.Complete()) return;
  ZtLog(kZtLogTrace, document.source)("%s :: %s: Malloc cannot allocate memory",
                                      document.marshaller, document.marshaller);
}

// A table with gaps would write elements without their prefix: it fails instead.
bool ZtNamespaceMarshaller::UseNamespaces(const ZtNamespaceBindings*& bindings) {
  bindings = &m_Bindings;
  if (!m_Bindings.Complete() && !m_Bindings.Build()) return false;
  m_Bindings.UseOwn();
  auto* declarations = zt_schema_namespace_retrieval::From(NamespaceBinder());
  return !declarations || m_Bindings.Apply(declarations->getNameSpaceInfo());
}

char* ZtNamespaceMarshaller::AddNameSpaceChange(const char* ownPrefix) {
  const ZtNamespaceBindings* bindings = nullptr;
  if (!UseNamespaces(bindings)) return nullptr;
  const ZtNamespaceBinding* binding = bindings->Find(ownPrefix);
  const char* alias = binding ? binding->alias.Get() : nullptr;
  return alias ? __strdup(alias) : nullptr;
}
