// Writes an element of any type by its rows.
#ifndef ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
#define ZTXML_SRC_BINDING_ZTELEMENTWRITER_H

#include "binding/ZtBinding.h"
#include "ztXMLDocGenerator.h"

class ZtElementWriter {
 public:
  explicit ZtElementWriter(ZtXMLDocGenerator& writer) : m_Writer(writer) {}

  // 1, or 0 when `element` is null, of another class or lacks something required. The prefix
  // (ZT_NULL: the type's) holds for the element with all that is in it; the caller's is restored.
  // `name` ZT_NULL is the type's.
  int Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix = XML_STR_ZT_NULL,
            ZtNameId name = XML_STR_ZT_NULL);

  // For write hooks: the element as its rows have it, and the document to write to.
  int WriteByRows(XMLElement& element, const ZtElementType& type, ZtNameId name);
  ZtXMLDocGenerator& Document() { return m_Writer; }
  void WriteText(ZtNameId name, const char* text);

 private:
  class Prefix;
  class StartTag;

  int WriteFlag(const zt_empty_element_type& flag, const ZtElementType& type);
  bool WriteStartTag(const XMLElement& element, const ZtElementType& type, ZtNameId name);
  bool WriteField(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  bool WriteChild(XMLElement* child, int index, const ZtElementType& type, const ZtField& field,
                  const ZtWritable& as);
  bool WriteOthers(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  void WriteOtherAttributes(const XMLElement& element, const ZtElementType& type,
                            const ZtField& field, StartTag& tag);

  ZtXMLDocGenerator& m_Writer;
  e_XmlStrRef m_Prefix = XML_STR_ZT_NULL;
};

#endif  // ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
