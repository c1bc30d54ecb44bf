// Writes an element of any type by its rows.
#ifndef ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
#define ZTXML_SRC_BINDING_ZTELEMENTWRITER_H

#include "binding/ZtBinding.h"
#include "ztXMLDocGenerator.h"

class ZtElementWriter {
 public:
  explicit ZtElementWriter(ZtXMLDocGenerator& writer) : m_Writer(writer) {}

  // 1, or 0 when `element` is null or lacks something required. The prefix holds for the element
  // with all that is in it; the caller's is restored.
  int Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix);

 private:
  class Prefix;
  class StartTag;

  int WriteFlag(const zt_empty_element_type& flag, const ZtElementType& type);
  int WriteContent(XMLElement& element, const ZtElementType& type);
  bool WriteStartTag(const XMLElement& element, const ZtElementType& type);
  bool WriteField(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  bool WriteChild(XMLElement* child, const ZtElementType& type, const ZtField& field,
                  const ZtElementType& childType, e_XmlStrRef prefix);
  bool WriteOthers(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  void WriteOtherAttributes(const XMLElement& element, const ZtElementType& type,
                            const ZtField& field, StartTag& tag);

  ZtXMLDocGenerator& m_Writer;
  e_XmlStrRef m_Prefix = XML_STR_ZT_NULL;
};

#endif  // ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
