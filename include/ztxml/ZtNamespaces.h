// The namespaces of the supplementary services, which each document may bind to other prefixes.
#ifndef ZTXML_INCLUDE_ZTNAMESPACES_H
#define ZTXML_INCLUDE_ZTNAMESPACES_H

#include "ztxml/XMLCommonDef.h"
#include "ztxml/ZtHolders.h"
#include "ztxml/ZtListOf.h"

/// One namespace with its two prefixes: the library's own and the one that a document uses.
struct ZtNamespaceBinding : ZtHeapObject {
  ZtText prefix;                       ///< the library's own prefix
  ZtText alias;                        ///< the document's prefix; null for none
  ZtText uri;                          ///< the namespace's URI
  ZtNamespaceBinding* next = nullptr;  ///< null at the end of the chain
  std::size_t aliasSize = 0;           ///< bytes of `alias`, which costs less to compare
  bool given = false;  ///< whether the declarations now applied have a prefix for it
};

/// The chain of namespaces of the supplementary services: "ss", "cp", "ocp", in this order.
class ZT_API ZtNamespaceBindings : public ZtNonCopyable {
 public:
  ZtNamespaceBindings();
  ~ZtNamespaceBindings();

  /// Whether no record is missing for want of memory.
  bool Complete() const { return m_bComplete; }
  /// Adds missing records; false when there still is no memory for one.
  bool Build();
  /// Sets every `alias` to the library's own prefix.
  void UseOwn();
  /// Sets every `alias` to what it was at first.
  void Forget();
  /// Takes the aliases from a document's declarations (prefix and URI), in order; null declares
  /// none. The last one for a namespace holds, but a default one does not displace a prefix. False
  /// when out of memory.
  bool Apply(ZtListOf<zt_AttributeValuePair>* declarations);
  /// The first record.
  const ZtNamespaceBinding* First() const { return m_pFirst; }
  /// The record whose `prefix` is `ownPrefix`, or null.
  const ZtNamespaceBinding* Find(const char* ownPrefix) const;

 private:
  ZT_LOCAL static ZtNamespaceBinding* New(e_XmlStrRef prefix, e_XmlStrRef uri);
  ZT_LOCAL static bool SetAlias(ZtNamespaceBinding& binding, const char* alias);

  ZtNamespaceBinding* m_pFirst = nullptr;
  bool m_bComplete = false;
};

#endif  // ZTXML_INCLUDE_ZTNAMESPACES_H
