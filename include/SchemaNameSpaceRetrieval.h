// The decoder of the schema namespace retrieval.
#ifndef ZTXML_INCLUDE_SCHEMANAMESPACERETRIEVAL_H
#define ZTXML_INCLUDE_SCHEMANAMESPACERETRIEVAL_H

#include "ZtSchemaDecoder.h"

/// Collects the attributes whose names begin with "xmlns", on every element of any document. The
/// root exists from the start.
class ZT_API XMLSchemaNamespaceRetrievalDecoder : public ZtSchemaDecoder {
 public:
  XMLSchemaNamespaceRetrievalDecoder();
  int ProcessElement(char* name, char* value) override;
  int ProcessAttribute(char* element, char* name, char* value) override;

 private:
  int ProcessStart(ScannedTag& tag) override;
  void ProcessAttributes(ScannedTag& tag) override;
  int ProcessEnd(char* slashName, std::size_t nameSize, char* text, std::size_t textSize) override;
};

#endif  // ZTXML_INCLUDE_SCHEMANAMESPACERETRIEVAL_H
