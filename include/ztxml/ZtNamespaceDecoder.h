// The schema decoder of the supplementary-service documents.
#ifndef ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
#define ZTXML_INCLUDE_ZTNAMESPACEDECODER_H

#include <utility>

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

  /// Takes the prefixes from `other` (borrowed) from now on, whatever the own binder says: for
  /// several decoders of one document.
  void ShareNamespaces(const ZtNamespaceDecoder& other) { m_pBindings = other.m_pBindings; }
  /// Forgets the prefixes of all binders.
  void ForgetNamespaces() { m_Bindings.Forget(); }
  /// Hands over the root that was read, null when there is none. If the document IsWhole, another
  /// can be read.
  XMLObject* TakeRoot() { return std::exchange(m_pRoot, nullptr); }
  /// Whether nothing is open and nothing has failed.
  bool IsWhole() const { return m_Stack.empty() && !m_bFailed; }

 protected:
  explicit ZtNamespaceDecoder(const ZtDocument& document);
  const char* LocalName(char* name, std::size_t& size) override;
  const char* LocalPart(const char* name, const char* colon) const override;

 private:
  ZT_LOCAL const char* Rewritten(char* name);

  ZtNamespaceBindings m_Bindings;
  const ZtNamespaceBindings* m_pBindings = &m_Bindings;  // those that count
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
