// What the documents of the supplementary services (3GPP TS 24.623) add to the bases: their
// contexts take the prefixes of a document and their marshallers write with them.
#ifndef ZTXML_INCLUDE_ZTNAMESPACEDOCUMENT_H
#define ZTXML_INCLUDE_ZTNAMESPACEDOCUMENT_H

#include "ztxml/ZtDocument.h"
#include "ztxml/ZtNamespaces.h"

/// A context with a namespace binder.
class ZT_API ZtNamespaceContext : public ZtContext {
 public:
  /// Takes (borrows) the zt_schema_namespace_retrieval of a document, which every worker of this
  /// context, made before or later, uses from now on: it must outlive them, or be replaced before
  /// it is deleted. 0 for null or another object: nothing changes.
  int SetNamespaceBinder(XMLObject* binder) override;
  XMLObject* namespaceBinder() const override { return m_pNamespaceBinder; }

 private:
  XMLObject* m_pNamespaceBinder = nullptr;
};

/// A marshaller that writes with the prefixes of the context's namespace binder, or with "ss", "cp"
/// and "ocp" as long as there is none.
class ZT_API ZtNamespaceMarshaller : public ZtMarshaller {
 public:
  /// A copy, for FreeElement, of the prefix now written for the namespace whose library prefix is
  /// `ownPrefix`. Null when it is the default namespace, for an unknown prefix, and when out of
  /// memory.
  char* AddNameSpaceChange(const char* ownPrefix);

 protected:
  explicit ZtNamespaceMarshaller(const ZtDocument& document);

 private:
  bool UseNamespaces(const ZtNamespaceBindings*& bindings) override;

  ZtNamespaceBindings m_Bindings;
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACEDOCUMENT_H
