// Prefixes of the supplementary-service documents, which bind their namespaces as they like.
#ifndef ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
#define ZTXML_INCLUDE_ZTNAMESPACEDECODER_H

#include "ZtSchemaDecoder.h"

/// One namespace: the library's own prefix and the one in force.
struct ZtNamespaceBinding : ZtHeapObject {
  ZtText prefix;  ///< the library's own
  ZtText alias;   ///< the document's; null for none
  ZtText uri;
  ZtNamespaceBinding* next = nullptr;
  bool given = false;  ///< the binder being applied has named a prefix
};

/// The chain of namespaces of the supplementary services: "ss" (no alias at first), "cp", "ocp".
class ZT_API ZtNamespaceBindings : public ZtNonCopyable {
 public:
  ZtNamespaceBindings();
  ~ZtNamespaceBindings();

  /// Whether the chain was built whole.
  bool Complete() const { return m_bComplete; }
  /// Takes the prefixes that a zt_schema_namespace_retrieval collected, in document order: the last
  /// declaration of a namespace holds, but a default one does not displace a prefix. Any other
  /// object, or null, changes nothing. False when out of memory.
  bool Apply(XMLObject* binder);
  /// The first record, in the order ss, cp, ocp.
  const ZtNamespaceBinding* First() const { return m_pFirst; }

 private:
  bool Append(const char* prefix, const char* alias, const char* uri);

  ZtNamespaceBinding* m_pFirst = nullptr;
  bool m_bComplete;
};

/// A schema decoder that rewrites a document's prefixes to the library's own and matches the names
/// without them. Names with a prefix that is bound to none of its namespaces are unknown.
class ZT_API ZtNamespaceDecoder : public ZtSchemaDecoder {
 public:
  /// Brings the aliases in line with a document's declarations. Always 1.
  int SetNameSpaceBinderInfo(XMLObject* binder);

  /// Sets PassName() to `name` with the library's own prefix in place of the document's ("/x:busy"
  /// becomes "/ss:busy"), or to `name` as it is when its prefix is not bound. Returns 1, or 0
  /// without memory.
  int XMLChangeNamespaceTag(char* name);

 protected:
  explicit ZtNamespaceDecoder(const ZtGrammar& grammar);
  char* LocalName(char* name) override;

 private:
  ZtNamespaceBindings m_Bindings;
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACEDECODER_H
