// Schema namespace retrieval: the namespace declarations of any document, as (prefix, URI) pairs.
#ifndef ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H
#define ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H

#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtDocument.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtSchemaDecoder.h"

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
  /// Adds the attribute if it declares a namespace, else ignores it; `attribute` is not used.
  /// Returns 1, or 0 when out of memory.
  int ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute) override;
  /// The declarations in document order (borrowed), null when there is none: each a
  /// zt_AttributeValuePair, stored as XMLAttribute*, with the prefix as its name (null for the
  /// default namespace) and the URI as its value.
  ZtListOf<zt_AttributeValuePair>* getNameSpaceInfo();

 private:
  ZtAttributeList m_NameSpaceInfo;
};

/// XML_SCHEMA_NAMESPACE_RETRIEVAL. There is no marshaller: createMarshaller returns null.
class SchemaNamespaceRetrievalContext
    : public ZtDescribedBy<SchemaNamespaceRetrievalContext, ZtContext> {
 public:
  ZT_API static const ZtDocument kDocument;
};

/// Collects the attributes whose names begin with "xmlns", on every element of any document. The
/// result exists before anything is read.
class ZT_API XMLSchemaNamespaceRetrievalDecoder : public ZtSchemaDecoder {
 public:
  XMLSchemaNamespaceRetrievalDecoder();
  int ProcessElement(char* name, char* value) override;
  int ProcessAttribute(char* element, char* name, char* value) override;

  void Start(ScannedTag& tag) override;
  void Attributes(ScannedTag& tag) override;
  void Tag(ScannedTag& tag) override;
  int End(ZtPiece slashName, ZtPiece text) override;
};

/// Makes an empty zt_schema_namespace_retrieval.
class SchemaNamespaceRetrievalDataBinder
    : public ZtDescribedBy<SchemaNamespaceRetrievalContext, ZtFactory> {
 public:
  XMLObject* CreateRootElement() override {
    return static_cast<XMLObject*>(ZtFactory::Make(zt_schema_namespace_retrieval::kType));
  }
};

/// Reads the declarations of any well-formed document.
class SchemaNamespaceRetrievalUnMarshaller
    : public ZtDescribedBy<SchemaNamespaceRetrievalContext, ZtUnMarshaller> {};

#endif  // ZTXML_INCLUDE_XMLSCHEMANAMESPACERETRIEVAL_H
