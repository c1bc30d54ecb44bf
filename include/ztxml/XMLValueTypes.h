// The generic value types that every schema reuses, and the release of element lists.
#ifndef ZTXML_INCLUDE_XMLVALUETYPES_H
#define ZTXML_INCLUDE_XMLVALUETYPES_H

#include "ztxml/ZtElement.h"

/// A text as an element.
class ZT_API zt_string : public ZtTyped<zt_string> {
 public:
  static const ZtElementType kType;
  /// `element` as a text, or null when it is of another class.
  static zt_string* From(XMLElement* element);
  /// The text (copied); null means absent.
  int setValue(const char* value) { return m_Value.Assign(value); }
  const char* getValue() const { return m_Value.Get(); }

 private:
  friend struct ZtValueMaker;

  ZtText m_Value;
};

/// An element without content whose mere presence carries meaning.
class ZT_API zt_empty_element_type : public ZtTyped<zt_empty_element_type> {
 public:
  static const ZtElementType kType;
  /// Whether the element is present: any number but 0.
  int setPresentValue(int present) { return m_iPresent.Set(present); }
  int getPresentValue() const { return m_iPresent; }
  /// The element's name, which a marshaller writes (copied). Setting it marks the element present;
  /// null clears both.
  int setValue(const char* value);
  const char* getValue() const { return m_Value.Get(); }

 private:
  friend struct ZtValueMaker;

  ZtNumber m_iPresent;
  ZtText m_Value;
};

/// One attribute by name and value.
class ZT_API zt_AttributeValuePair : public XMLAttribute {
 public:
  const char* ClassName() const override;
  const char* BaseClassName() const override;
  const char* ElementName() const override;
  int ReservedHook() override;
  /// `attribute` as a pair, or null when it is of another class.
  static zt_AttributeValuePair* From(XMLAttribute* attribute);
  /// Unlike other setters these two leave the field as it is when given null.
  int setName(const char* name) {
    if (name) m_Namespace.Refer(nullptr);
    return name ? m_Name.Assign(name) : 1;
  }
  int setValue(const char* value) { return value ? m_Value.Assign(value) : 1; }
  const char* getName() const { return m_Name.Get(); }
  const char* getValue() const { return m_Value.Get(); }
  /// The namespace of a name with a prefix, as the document declared it that was read in the
  /// standard profile; null for others. It holds until another name is set.
  const char* getNamespaceValue() const { return m_Namespace.Get(); }

 private:
  friend struct ZtValueMaker;

  ZtText m_Name;
  ZtText m_Value;
  ZtText m_Namespace;
};

/// Makes the values that callers give to elements of any schema.
class ZT_API zt_xml_common_methods {
 public:
  /// A new text for a list of texts, and a new attribute for a list of attributes (both copied,
  /// null for none), which are the caller's until an element takes them. Null when out of memory.
  static zt_string* CreateString(const char* text);
  static zt_AttributeValuePair* CreateAttribute(const char* name, const char* value);
  /// A new, empty list, recorded under tag 14, as a list that an element takes must be. It is the
  /// caller's until then; null when out of memory.
  static ZtSingleElementList* CreateElementList();
  /// Deletes every element in `list` (recorded under tag 14) that has no owner, then the list; a
  /// list that an element has taken is left alone. Null only logs the warning of an empty list.
  static void DeleteElementList(ZtSingleElementList* list);
};

#endif  // ZTXML_INCLUDE_XMLVALUETYPES_H
