// The namespaces of the supplementary-service documents, which documents bind to any prefixes.
#ifndef ZTXML_INCLUDE_ZTNAMESPACES_H
#define ZTXML_INCLUDE_ZTNAMESPACES_H

#include "XMLCommonDef.h"
#include "ztxml/ZtHolders.h"
#include "ztxml/ZtListOf.h"

/// One namespace: the library's own prefix and the one in force.
struct ZtNamespaceBinding : ZtHeapObject {
  ZtText prefix;                       ///< the library's own
  ZtText alias;                        ///< the document's; null for none
  ZtText uri;                          ///< of the namespace
  ZtNamespaceBinding* next = nullptr;  ///< null at the end of the chain
  std::size_t aliasSize = 0;  ///< its bytes, so that a long one costs nothing where it is not used
  bool given = false;         ///< the binder being applied has named a prefix
};

/// The chain of namespaces of the supplementary services: "ss", "cp", "ocp", in this order.
class ZT_API ZtNamespaceBindings : public ZtNonCopyable {
 public:
  ZtNamespaceBindings();
  ~ZtNamespaceBindings();

  /// Whether the chain is whole.
  bool Complete() const { return m_bComplete; }
  /// Adds the records for which there was no memory before; false when there still is none.
  bool Build();
  /// Makes every prefix in force the library's own.
  void UseOwn();
  /// Takes the prefixes that a document declares (prefix and URI; null for none), in its order: the
  /// last declaration of a namespace holds, but a default one does not displace a prefix. False
  /// when out of memory.
  bool Apply(ZtListOf<zt_AttributeValuePair>* declarations);
  /// The first record.
  const ZtNamespaceBinding* First() const { return m_pFirst; }
  /// The record of one of the library's own prefixes, or null.
  const ZtNamespaceBinding* Find(const char* ownPrefix) const;

 private:
  static ZtNamespaceBinding* New(e_XmlStrRef prefix, e_XmlStrRef alias, e_XmlStrRef uri);
  static bool SetAlias(ZtNamespaceBinding& binding, const char* alias);

  ZtNamespaceBinding* m_pFirst = nullptr;
  bool m_bComplete = false;
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACES_H
