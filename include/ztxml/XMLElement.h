// The abstract bases of every schema type. There is no run-time type information: types identify
// themselves by the strings that they return.
#ifndef ZTXML_INCLUDE_XMLELEMENT_H
#define ZTXML_INCLUDE_XMLELEMENT_H

#include "ztxml/ZtExport.h"

/// An attribute that a schema type keeps as an object.
class ZT_API XMLAttribute : public ZtNonCopyable {
 public:
  virtual ~XMLAttribute() = default;
  /// The concrete type's name (static).
  virtual const char* ClassName() const = 0;
  /// "XMLAttribute".
  virtual const char* BaseClassName() const = 0;
  /// A label (static).
  virtual const char* ElementName() const = 0;
  /// Reserved; every type answers 0.
  virtual int ReservedHook() = 0;

 private:
  friend class ZtOwnership;

  bool m_bOwned = false;  // whether an element owns it
};

/// An element. A parent owns its children and deletes them with itself.
class ZT_API XMLElement : public ZtNonCopyable {
 public:
  virtual ~XMLElement() = default;
  /// The concrete type's name (static): a parent accepts a child only under the expected one.
  virtual const char* ClassName() const = 0;
  /// The abstract base that the type derives from, "XMLElement" or "XMLObject".
  virtual const char* BaseClassName() const = 0;
  /// The element's label (static), mostly its local name.
  virtual const char* ElementName() const = 0;
  /// Reserved; every type answers 0.
  virtual int ReservedHook() = 0;
  /// Offers a child: at its start under its local name with the object built for it (null for text
  /// and unknown elements), at its end as "/" + name with its text in `value`. Returns 1 when the
  /// child was taken or may be ignored, 0 when it is refused. After a 1 this element owns `child`
  /// if its class is the one that the type expects under `name` and it came with its start (with
  /// its end, for classes that are made there); any other object stays the caller's.
  virtual int ProcessUnMarshall(char* name, char* value, XMLElement* child);
  /// Offers an attribute: as text when `attribute` is null, else as an object, which this element
  /// then owns if it keeps attributes of unknown names and `name` is one. Returns 1 taken or
  /// ignored, 0 refused.
  virtual int ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute);

 private:
  friend class ZtOwnership;
  friend class ZtReleaseQueue;

  // The element itself while a parent owns it; while it is queued for deletion, the next one; of a
  // root what it was read from, if that is kept. See ZtOwnership.
  XMLElement* m_pNextReleased = nullptr;
};

/// An element that can be the root of a document.
class ZT_API XMLObject : public XMLElement {
 public:
  /// 1 for types that a document can have as its root, else 0.
  virtual int IsRootElement() const = 0;
};

#endif  // ZTXML_INCLUDE_XMLELEMENT_H
