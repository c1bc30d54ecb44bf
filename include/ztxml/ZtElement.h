// The bases of the schema types, which answer whatever a type's table of fields can tell.
#ifndef ZTXML_INCLUDE_ZTELEMENT_H
#define ZTXML_INCLUDE_ZTELEMENT_H

#include "ztxml/XMLElement.h"
#include "ztxml/ZtHolders.h"
#include "ztxml/ZtListOf.h"

/// A type that is described by a table; `Base` is XMLElement or XMLObject.
template <class Base>
class ZT_API ZtBound : public Base {
 public:
  /// The operations of XMLElement, answered from the type's table.
  const char* ClassName() const override;
  const char* BaseClassName() const override;
  const char* ElementName() const override;
  int ReservedHook() override;
  int ProcessUnMarshall(char* name, char* value, XMLElement* child) final;
  int ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute) override;

 protected:
  virtual const ZtElementType& Type() const = 0;

 private:
  friend class ZtReflection;
  friend struct ZtTypeAccess;
};

extern template class ZtBound<XMLElement>;
extern template class ZtBound<XMLObject>;

/// An element that is described by a table.
using ZtElement = ZtBound<XMLElement>;

/// An element that is described by a table and derives from XMLObject.
class ZT_API ZtObject : public ZtBound<XMLObject> {
 public:
  int IsRootElement() const override;
};

/// The base of a type `T` whose table is T::kType; `Base` is ZtElement, ZtObject or another type.
template <class T, class Base = ZtElement>
class ZtTyped : public Base {
 public:
  using Described = T;  ///< the type that T::kType describes

  ZT_INLINE ~ZtTyped() override = default;

 protected:
  const ZtElementType& Type() const override { return T::kType; }
};

/// A type that keeps the child elements which it does not know. `Base` is ZtElement or ZtObject.
template <class Base = ZtElement>
class ZtKeepsElements : public Base {
 public:
  ZT_INLINE ~ZtKeepsElements() override = default;

  /// Takes a list of elements, stored as XMLElement*. Only those are written that the comment of
  /// the type names.
  int setAnyElementValue(ZtSingleElementList* list) { return m_AnyElements.Set(list); }
  ZtListOf<XMLElement>* getAnyElementValue() const { return m_AnyElements; }
  /// Takes `element`; 0 when it is null or owned, or there is no memory.
  int addAnyElement(XMLElement* element) { return m_AnyElements.Add(element); }

 private:
  friend struct ZtExtensibleRows;

  ZtChildListOf<XMLElement> m_AnyElements;
};

/// A type that keeps the child elements and the attributes which it does not know, and writes these
/// attributes back. `Base` is ZtElement or ZtObject.
template <class Base = ZtElement>
class ZtExtensible : public ZtKeepsElements<Base> {
 public:
  ZT_INLINE ~ZtExtensible() override = default;

  /// Takes a list of zt_AttributeValuePair, stored as XMLAttribute*. Of several with one name only
  /// the first is written, and none whose name the start tag has already.
  int setAnyAttributeValue(ZtSingleElementList* list) { return m_AnyAttributes.Set(list); }
  ZtListOf<zt_AttributeValuePair>* getAnyAttributeValue() const { return m_AnyAttributes; }
  /// Takes `attribute`; 0 when it is null or owned, or there is no memory.
  int addAnyAttribute(XMLAttribute* attribute) { return m_AnyAttributes.Add(attribute); }

 private:
  friend struct ZtExtensibleRows;

  ZtAttributeList m_AnyAttributes;
};

#endif  // ZTXML_INCLUDE_ZTELEMENT_H
