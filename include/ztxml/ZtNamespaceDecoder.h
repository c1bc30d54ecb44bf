// The schema decoder of the supplementary-service documents.
#ifndef ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
#define ZTXML_INCLUDE_ZTNAMESPACEDECODER_H

#include "ztxml/ZtNamespaces.h"
#include "ztxml/ZtSchemaDecoder.h"

/// A schema decoder that rewrites a document's prefixes to the library's own and matches names
/// without prefixes. Names whose prefix is bound to none of its namespaces are unknown.
class ZT_API ZtNamespaceDecoder : public ZtSchemaDecoder {
 public:
  /// Takes the document's prefixes from `binder`, a zt_schema_namespace_retrieval. Always 1.
  int SetNameSpaceBinderInfo(XMLObject* binder) override;

  /// Sets PassName() to `name` with the library's own prefix in place of the document's ("/x:busy"
  /// becomes "/ss:busy"), or to `name` as it is when its prefix is not bound. Returns 1, or 0 when
  /// out of memory.
  int XMLChangeNamespaceTag(char* name);

 protected:
  explicit ZtNamespaceDecoder(const ZtDocument& document);
  const char* LocalName(char* name, std::size_t& size) override;
  const char* LocalPart(const char* name, const char* colon) const override;

 private:
  ZT_LOCAL const char* Rewritten(char* name);

  ZtNamespaceBindings m_Bindings;
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
