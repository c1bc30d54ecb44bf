// Members of schema types that own what they hold and free it themselves.
//
// What an element takes must come from the library and be recorded in the memory log under tag 14:
// objects from a schema's object factory or out of another tree; texts, attributes and lists from
// zt_xml_common_methods (CreateString, CreateAttribute, CreateElementList). An object has one
// owner: one that is offered while it has an owner is not taken, with a line in the log. What a
// list's Remove takes out of a tree is the caller's and may be given away again. No object may be
// put below itself.
#ifndef ZTXML_INCLUDE_ZTHOLDERS_H
#define ZTXML_INCLUDE_ZTHOLDERS_H

#include "XMLElement.h"
#include "XMLList.h"
#include "ztxml/ZtArena.h"
#include "ztxml/ZtPiece.h"

template <class T>
class ZtListOf;

/// A text: a copy, or one that stays where it is: in the document that it was read from, or among
/// the library's own.
class ZT_API ZtText {
 public:
  ZtText() : m_iSize(0), m_bCopy(0) {}
  ~ZtText();
  ZtText(const ZtText&) = delete;
  ZtText& operator=(const ZtText&) = delete;

  /// Stores `text`, left in place where `arena` holds it, else copied, and frees the old copy
  /// after; null clears. What is left in place ends with a NUL, and the object that the text is a
  /// member of lies in the arena. False when there was no memory for the copy: the text is null
  /// then.
  bool Set(ZtPiece text, const ZtArena* arena = nullptr);
  /// Stores `text`, which outlives the object, without a copy.
  void Refer(ZtPiece text) {
    if (m_bCopy) FreeCopy();
    m_pText = const_cast<char*>(text.text);
    m_iSize = text.size & kMostSize;
  }
  /// Set as the public setters have it. Intended: setters of texts, children and lists answer 1
  /// even when nothing was stored, for want of memory or because the object has an owner; callers
  /// do not ask.
  int Assign(const char* text);
  const char* Get() const { return m_pText; }
  ZtPiece Piece() const { return {m_pText, m_iSize}; }

 private:
  static constexpr unsigned kSizeBits = 8 * sizeof(std::size_t) - 1;
  static constexpr std::size_t kMostSize = ~std::size_t{0} >> 1;

  bool Copy(ZtPiece text);
  void FreeCopy();

  char* m_pText = nullptr;
  std::size_t m_iSize : kSizeBits;
  std::size_t m_bCopy : 1;  // else it is null or in place
};

/// A number, or which value of an enumeration. `Number` is unsigned or unsigned long long.
template <class Number>
class ZtScalar {
 public:
  ZtScalar(Number value = 0) : m_Value(value) {}  // NOLINT(google-explicit-constructor)

  /// Stores `value`. Returns 1, as the public setters do.
  template <class Value>
  int Set(Value value) {
    m_Value = static_cast<Number>(value);
    return 1;
  }
  Number Get() const { return m_Value; }
  /// As what the getter that returns it gives: a number or an enumeration.
  template <class Value>
  operator Value() const {  // NOLINT(google-explicit-constructor)
    return static_cast<Value>(m_Value);
  }

 private:
  Number m_Value;
};
using ZtNumber = ZtScalar<unsigned>;
using ZtNumber64 = ZtScalar<unsigned long long>;

/// A child that occurs at most once.
class ZT_API ZtChild {
 public:
  ZtChild() = default;
  ~ZtChild();
  ZtChild(const ZtChild&) = delete;
  ZtChild& operator=(const ZtChild&) = delete;

  /// Takes `child` and deletes another one held before; the same again changes nothing, nor does
  /// one that has an owner. Returns 1.
  int Set(XMLElement* child) {
    static_cast<void>(Take(child));
    return 1;
  }
  /// The same; false when `child` has another owner.
  bool Take(XMLElement* child);
  XMLElement* Get() const { return m_pChild; }
  /// As what the getter that returns it gives: a type that this child always has.
  template <class T>
  operator T*() const {  // NOLINT(google-explicit-constructor)
    return static_cast<T*>(m_pChild);
  }

 private:
  XMLElement* m_pChild = nullptr;
};

/// A repeated child or attribute: a list that is made on the first insertion, so that null means
/// none. `Item` is XMLElement or XMLAttribute, and the list's entries are exactly such pointers.
template <class Item>
class ZT_API ZtOwnedList {
 public:
  ZtOwnedList() = default;
  ~ZtOwnedList();
  ZtOwnedList(const ZtOwnedList&) = delete;
  ZtOwnedList& operator=(const ZtOwnedList&) = delete;

  /// Takes `list` with its entries and deletes another one held before; the same again changes
  /// nothing, nor does one that has an owner. Entries that have an owner are taken out of the list.
  /// Returns 1.
  int Set(ZtSingleElementList* list);
  /// Appends and takes `item`. Returns 1, or 0 for null, for one that has an owner, or without
  /// memory: `item` is not taken. A list made for it is recorded under `source`; `arena` (null: the
  /// heap) has what is made.
  int Add(Item* item, const char* source = "src/XMLList", ZtArena* arena = nullptr);
  ZtSingleElementList* Get() const { return m_pList; }
  /// The list by what it holds, as the getter that returns it says.
  template <class T>
  operator ZtListOf<T>*() const {  // NOLINT(google-explicit-constructor)
    return static_cast<ZtListOf<T>*>(m_pList);
  }
  /// The first node, null when there is none.
  ZtListNode* Head() const {
    if (!m_pList) return nullptr;
    // The call is for an empty list's line in the log.
    return m_pList->m_pHead ? m_pList->m_pHead : m_pList->GetPtrToListHead();
  }

 private:
  ZtSingleElementList* m_pList = nullptr;
};

extern template class ZtOwnedList<XMLElement>;
extern template class ZtOwnedList<XMLAttribute>;
/// Repeated children.
using ZtChildList = ZtOwnedList<XMLElement>;
/// Repeated attributes.
using ZtAttributeList = ZtOwnedList<XMLAttribute>;

#endif  // ZTXML_INCLUDE_ZTHOLDERS_H
