// Who owns an object: nobody, or one element, which deletes it.
#ifndef ZTXML_SRC_BINDING_ZTOWNERSHIP_H
#define ZTXML_SRC_BINDING_ZTOWNERSHIP_H

#include "base/ZtLog.h"
#include "ztxml/XMLElement.h"

class ZtSourceText;

class ZtOwnership {
 public:
  static bool IsOwned(const XMLElement& element) { return element.m_pNextReleased == &element; }
  static bool IsOwned(const XMLAttribute& attribute) { return attribute.m_bOwned; }

  // Gives an object its owner; false, with a line in the log, when it has one already.
  template <class Item>
  static bool Take(Item& item) {
    if (IsOwned(item)) {
      LogOwned(item.ClassName());
      return false;
    }
    Set(item, true);
    return true;
  }
  // Leaves an object without an owner.
  template <class Item>
  static void Drop(Item& item) {
    Set(item, false);
  }
  // What the root of a tree was read from. Only an element without an owner has it: one that is
  // given to a parent is no root any more.
  static void SetSource(XMLElement& root, ZtSourceText* source) {
    root.m_pNextReleased = reinterpret_cast<XMLElement*>(source);
  }
  static ZtSourceText* SourceOf(const XMLElement& root) {
    return IsOwned(root) ? nullptr : reinterpret_cast<ZtSourceText*>(root.m_pNextReleased);
  }
  static void LogOwned(const char* what) {
    ZtLog(kZtLogError, "src/ZtHolders")("<XML Module>: %s has an owner already", what);
  }

 private:
  static void Set(XMLElement& element, bool owned) {
    element.m_pNextReleased = owned ? &element : nullptr;
  }
  static void Set(XMLAttribute& attribute, bool owned) { attribute.m_bOwned = owned; }
};

#endif  // ZTXML_SRC_BINDING_ZTOWNERSHIP_H
