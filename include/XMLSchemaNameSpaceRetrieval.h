// Schema namespace retrieval: the namespace declarations of any document, as (prefix, URI) pairs.
#ifndef ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H
#define ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H

#include "XMLValueTypes.h"
#include "ZtDocument.h"
#include "ZtElement.h"

/// The declarations of a document.
class ZT_API zt_schema_namespace_retrieval
    : public ZtTyped<zt_schema_namespace_retrieval, ZtObject> {
 public:
  static const ZtElementType kType;

  /// `object` as a set of declarations, or null when it is of another class.
  static zt_schema_namespace_retrieval* From(XMLObject* object);

  /// Takes a non-null list of zt_AttributeValuePair with its entries; null changes nothing. Always
  /// 1.
  int setNameSpaceInfo(ZtSingleElementList* list);
  /// The declarations in document order (borrowed), null when there is none: each a
  /// zt_AttributeValuePair, stored as XMLAttribute*, with the prefix as its name (null for the
  /// default namespace) and the URI as its value.
  ZtListOf<zt_AttributeValuePair>* getNameSpaceInfo();

 private:
  friend struct SchemaNamespaceRetrievalBinding;

  ZtAttributeList m_NameSpaceInfo;
};

/// Makes an empty zt_schema_namespace_retrieval.
class ZT_API SchemaNamespaceRetrievalDataBinder : public XMLObjectFactory {
 public:
  XMLObject* CreateRootElement() override;
};

class SchemaNamespaceRetrievalContext;

/// Reads the declarations of any well-formed document.
class ZT_API SchemaNamespaceRetrievalUnMarshaller
    : public ZtDescribedBy<SchemaNamespaceRetrievalContext, ZtUnMarshaller> {};

/// XML_SCHEMA_NAMESPACE_RETRIEVAL. There is no marshaller: createMarshaller returns null.
class ZT_API SchemaNamespaceRetrievalContext
    : public ZtDescribedBy<SchemaNamespaceRetrievalContext, ZtContext> {
 public:
  static const ZtDocument kDocument;
};

#endif  // ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H
