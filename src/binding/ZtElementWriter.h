// Writes an element of any type by its rows.
#ifndef ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
#define ZTXML_SRC_BINDING_ZTELEMENTWRITER_H

#include <climits>

#include "base/ZtLog.h"
#include "binding/ZtBinding.h"
#include "text/ZtPen.h"
#include "ztxml/XMLStack.h"

class ZtNamespaceBindings;

// The marshaller on whose behalf elements are written.
struct ZtWriterScope {
  const char* source;  // file under which it logs
  const char* marshaller = nullptr;
  const ZtNamespaceBindings* namespaces = nullptr;  // null: the tables' prefixes are written
};

// The first node of a list, null when there is none. An empty list has its line in the log.
inline ZtListNode* ZtHeadOf(ZtSingleElementList* list) {
  return list ? list->GetPtrToListHead() : nullptr;
}

// Why an element was not written: what it is that lacks something or cannot stand where it does.
struct ZtLack {
  enum class Why : std::uint8_t { kNothing, kValue, kClass, kDepth };

  Why why = Why::kNothing;
  const XMLElement* element = nullptr;
  const ZtField* field = nullptr;  // what it lacks, null where that is no single row
};

class ZtElementWriter {
 public:
  // Elements within each other beyond which a tree is not written: twice what one that was read
  // has.
  static constexpr int kMostDepth = 2 * XmlCodeGenStack::kCapacity;

  ZtElementWriter(ZtXMLDocGenerator& writer, const ZtWriterScope& scope)
      : m_Pen(writer),
        m_Scope(scope),
        m_iDiscardedUpTo(&ztLogDiscardedUpTo ? ztLogDiscardedUpTo : INT_MIN) {}

  // 1, or 0 when `element` is null, of another class or lacks something required. The prefix
  // (ZT_NULL: the type's) holds for the element with all that is in it; the caller's is restored.
  // `name` ZT_NULL is the type's.
  int Write(XMLElement* element, const ZtElementType& type, ZtNameId prefix = XML_STR_ZT_NULL,
            ZtNameId name = XML_STR_ZT_NULL);

  // For hooks and for steps without an object: the children as the rows have them, the text element
  // of a row (0 when it has no text), and a text element (null: an empty one).
  bool WriteChildren(const XMLElement& element, const ZtElementType& type);
  int WriteText(const ZtField& field, ZtPiece text);
  void WriteText(ZtNameId name, ZtPiece text);
  // An element in pieces: a start tag with a list of attributes (null: none; false without memory),
  // an element without content, an end tag; and a line under the marshaller's file.
  bool Start(ZtNameId name, ZtSingleElementList* attributes = nullptr);
  void WriteEmpty(ZtNameId name) { m_Pen.Empty(name.Piece()); }
  void End(ZtNameId name);
  template <class... Args>
  void Log(int level, const char* format, Args... args) const {
    if (Tells(level) && format) LogLine(level, format, args...);
  }

  // Whether something was left out for want of memory or for lying too deep, also where a failure
  // is let pass.
  bool IsIncomplete() const { return m_bIncomplete; }
  // Of the last Write that failed.
  const ZtLack& Lack() const { return m_Lack; }

 private:
  // Whether the log takes lines of this level: whether it did when the writer was made.
  bool Tells(int level) const { return level > m_iDiscardedUpTo; }
  void ChangePrefix(ZtNameId prefix);
  template <class... Args>
  [[gnu::cold, gnu::noinline]] void LogLine(int level, const char* format, Args... args) const {
    ZtLog(level, m_Scope.source)(format, args...);
  }
  void LogWriter(const ZtField& field) const {
    if (field.Is(kZtLogged) && Tells(kZtLogTrace)) LogName(field);
  }
  void LogName(const ZtField& field) const;
  ZT_LOCAL void LogAbsent(const XMLElement& element, const ZtElementType& type,
                          const ZtField& field) const;
  bool Lacks(ZtLack::Why why, const XMLElement* element, const ZtField* field = nullptr) {
    m_Lack = {why, element, field};
    return false;
  }
  // For want of something that is more than a row, unless it is known what.
  bool LacksSomething(const XMLElement& element) {
    return m_Lack.why == ZtLack::Why::kNothing && Lacks(ZtLack::Why::kValue, &element);
  }
  int Refuses(const XMLElement* element, const ZtElementType& type);
  inline int WriteElement(const XMLElement& element, const ZtElementType& type, ZtNameId name);
  int WriteFlag(const zt_empty_element_type& flag, const ZtFlag& how);
  bool HasRequired(const XMLElement& element, const ZtElementType& type);
  inline bool WriteStartTag(const XMLElement& element, const ZtElementType& type, ZtNameId name);
  inline bool WriteAttribute(ZtPen::Tag& tag, const XMLElement& element, const ZtElementType& type,
                             const ZtField& field);
  bool WriteAnyAttribute(const XMLElement& element, const ZtElementType& type,
                         const ZtField& field);
  void WriteDeclared(const ZtElementType& type);
  bool WriteOtherAttributes(ZtListNode* head, const XMLElement* element, const ZtElementType* type,
                            bool declares);
  inline bool WriteRows(const XMLElement& element, const ZtElementType& type);
  inline bool WriteTextElement(const XMLElement& element, const ZtElementType& type,
                               const ZtField& field);
  bool WriteAnyTextElement(const XMLElement& element, const ZtElementType& type,
                           const ZtField& field);
  inline bool WriteList(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  void WriteTexts(const XMLElement& element, const ZtField& field);
  // The child of a row of `type`, which is written as `as` has it.
  inline bool WriteChild(XMLElement* child, int index, const ZtElementType& type,
                         const ZtField& field, const ZtElementType& as,
                         ZtNameId prefix = XML_STR_ZT_NULL);
  bool MayLackChild(int index, const ZtElementType& type, const ZtField& field,
                    const ZtElementType& as);
  bool WriteOthers(const XMLElement& element, const ZtElementType& type, const ZtField& field);
  bool WriteOther(XMLElement* child, const ZtElementType& type, const ZtField& field);

  ZtPen m_Pen;
  const ZtWriterScope m_Scope;
  const int m_iDiscardedUpTo;
  ZtNameId m_Prefix = XML_STR_ZT_NULL;
  int m_iDepth = 0;  // of elements within each other
  bool m_bIncomplete = false;
  ZtLack m_Lack;
};

#endif  // ZTXML_SRC_BINDING_ZTELEMENTWRITER_H
