// Writes an element of any type by its rows.
#ifndef ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
#define ZTXML_SRC_BINDING_ZTELEMENTWRITER_H

#include "base/ZtLog.h"
#include "binding/ZtBinding.h"
#include "ztXMLDocGenerator.h"

class ZtNamespaceBindings;

// The marshaller on whose behalf elements are written.
struct ZtWriterScope {
  const char* source;  // file under which it logs
  const char* marshaller = nullptr;
  const ZtNamespaceBindings* namespaces = nullptr;  // null: the tables' prefixes are written
};

class ZtElementWriter {
 public:
  ZtElementWriter(ZtXMLDocGenerator& writer, const ZtWriterScope& scope)
      : m_Writer(writer), m_Scope(scope) {}

  // 1, or 0 when `element` is null, of another class or lacks something required. The prefix
  // (ZT_NULL: the type's) holds for the element with all that is in it; the caller's is restored.
  // `name` ZT_NULL is the type's.
  int Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix = XML_STR_ZT_NULL,
            ZtNameId name = XML_STR_ZT_NULL);

  // For content hooks: the children as the rows have them, a text element (null: an empty one), and
  // a line under the marshaller's file.
  bool WriteChildren(const XMLElement& element, const ZtElementType& type);
  void WriteText(ZtNameId name, const char* text);
  template <class... Args>
  void Log(int level, const char* format, Args... args) const {
    if (format) ZtLog(level, m_Scope.source)(format, args...);
  }

 private:
  class Prefix;
  class StartTag;

  int WriteFlag(const zt_empty_element_type& flag, const ZtFlag& how);
  bool HasRequired(const XMLElement& element, const ZtElementType& type) const;
  bool WriteStartTag(const XMLElement& element, const ZtElementType& type, ZtNameId name);
  bool WriteField(const XMLElement& element, const ZtField& field);
  bool WriteChild(XMLElement* child, int index, const ZtField& field, const ZtWritable& as);
  bool WriteOthers(const XMLElement& element, const ZtField& field);
  static bool WriteOtherAttributes(ZtListNode* head, const ZtElementType& type, StartTag& tag);

  ZtXMLDocGenerator& m_Writer;
  const ZtWriterScope m_Scope;
  e_XmlStrRef m_Prefix = XML_STR_ZT_NULL;
};

#endif  // ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
