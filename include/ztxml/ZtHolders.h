// Members of schema types that own what they hold and free it themselves.
//
// What an element takes must come from the library and be recorded in the memory log under tag 14:
// objects from a schema's object factory or out of another tree; texts, attributes and lists from
// zt_xml_common_methods (CreateString, CreateAttribute, CreateElementList). An object has one
// owner: when a second one is offered the object, it does not take it and logs a line. What a
// list's Remove takes out of a tree is the caller's and may be given away again. No object may be
// put below itself.
#ifndef ZTXML_INCLUDE_ZTHOLDERS_H
#define ZTXML_INCLUDE_ZTHOLDERS_H

#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

#include "ztxml/XMLElement.h"
#include "ztxml/XMLList.h"
#include "ztxml/ZtArena.h"
#include "ztxml/ZtListOf.h"
#include "ztxml/ZtPiece.h"

/// A text: an owned copy, or borrowed in place from the document that was read or from the library.
class ZT_API ZtText {
 public:
  ZtText() : m_iSize(0), m_bCopy(0), m_bLost(0) {}
  ~ZtText();
  ZtText(const ZtText&) = delete;
  ZtText& operator=(const ZtText&) = delete;

  /// Stores `text` and then frees the old copy; null clears. `text` is copied unless `arena` holds
  /// it: then it stays in place, must end with a NUL, and this member's object must lie in the
  /// arena. False when there was no memory for the copy: the text is null then.
  bool Set(ZtPiece text, const ZtArena* arena = nullptr);
  /// Stores `text`, which must outlive the object, without a copy.
  void Refer(ZtPiece text) {
    if (m_bCopy) FreeCopy();
    m_pText = const_cast<char*>(text.text);
    m_iSize = text.size & kMostSize;
    m_bLost = 0;
  }
  /// Stores a copy, as public setters do. Intended: setters of texts, children and lists answer 1
  /// even when they stored nothing, because memory was short or the object has an owner; callers do
  /// not check.
  int Assign(const char* text);
  const char* Get() const { return m_pText; }
  ZtPiece Piece() const { return {m_pText, m_iSize}; }
  /// Whether there was no memory for the text that was stored last: it is null, and no writer of
  /// the standard profile takes that for a value that is absent.
  bool IsLost() const { return m_bLost; }
  /// Exchanges two texts. One that is borrowed must live on with the other object.
  void Swap(ZtText& other) {
    char own[sizeof(ZtText)];
    std::memcpy(own, static_cast<void*>(this), sizeof(own));
    std::memcpy(static_cast<void*>(this), static_cast<void*>(&other), sizeof(own));
    std::memcpy(static_cast<void*>(&other), own, sizeof(own));
  }

 private:
  static constexpr unsigned kSizeBits = 8 * sizeof(std::size_t) - 2;
  static constexpr std::size_t kMostSize = ~std::size_t{0} >> 2;

  ZT_LOCAL bool Copy(ZtPiece text);
  void FreeCopy();

  char* m_pText = nullptr;
  std::size_t m_iSize : kSizeBits;
  std::size_t m_bCopy : 1;  // whether the text is an owned copy
  std::size_t m_bLost : 1;  // whether there was no memory for it
};

/// A number, or a value of an enumeration as a number, and whether it was ever set: by a setter or
/// by a document that states it. `Number` is unsigned or unsigned long long.
template <class Number>
class ZtScalar {
 public:
  /// Holds `value` without being set.
  ZtScalar(Number value = 0) { Store(value); }  // NOLINT(google-explicit-constructor)

  /// Stores `value`. Returns 1, as the public setters do.
  template <class Value>
  int Set(Value value) {
    Store(static_cast<Number>(value));
    m_bSet = true;
    return 1;
  }
  Number Get() const {
    Number value;
    std::memcpy(&value, m_Value, sizeof(value));
    return value;
  }
  bool IsSet() const { return m_bSet; }
  /// What a schema type's optional accessor gives. It stands beside setter and getter, called as
  /// the attribute or element is (retryAfter() of "retry-after"), or value() for an element's own
  /// text. It gives the value that was set, also 0, and std::nullopt where none was, whatever
  /// default the getter gives. A truth value that is neither 0 nor 1 is none. ZtIsStated agrees.
  template <class Value>
  std::optional<Value> Stated() const {
    constexpr Number kMost{std::numeric_limits<Value>::max()};
    if (!m_bSet || Get() > kMost) return std::nullopt;
    return static_cast<Value>(Get());
  }
  /// As above, of an enumeration, whose values from `absent` on are none.
  template <class Value>
  std::optional<Value> Stated(Value absent) const {
    if (!m_bSet || Get() >= static_cast<Number>(absent)) return std::nullopt;
    return static_cast<Value>(Get());
  }
  /// Converts to what a getter returns: a number or an enumeration.
  template <class Value>
  operator Value() const {  // NOLINT(google-explicit-constructor)
    return static_cast<Value>(Get());
  }

 private:
  void Store(Number value) { std::memcpy(m_Value, &value, sizeof(value)); }

  std::uint32_t m_Value[sizeof(Number) / 4];  // aligned for 4 bytes, so that the flag takes no more
  bool m_bSet = false;
};
/// A number of 32 bits, or which value of an enumeration.
using ZtNumber = ZtScalar<unsigned>;
/// A number of 64 bits.
using ZtNumber64 = ZtScalar<unsigned long long>;

/// A child that occurs at most once.
class ZT_API ZtChild {
 public:
  ZtChild() = default;
  ~ZtChild();
  ZtChild(const ZtChild&) = delete;
  ZtChild& operator=(const ZtChild&) = delete;

  /// Takes `child` and deletes the one held before; changes nothing when `child` is held already or
  /// has an owner. Returns 1.
  int Set(XMLElement* child) {
    static_cast<void>(Take(child));
    return 1;
  }
  /// As Set, but false when `child` has another owner.
  bool Take(XMLElement* child);
  XMLElement* Get() const { return m_pChild; }
  /// Exchanges two children.
  void Swap(ZtChild& other) { std::swap(m_pChild, other.m_pChild); }

 private:
  XMLElement* m_pChild = nullptr;
};

/// A child that is a `T`.
template <class T>
class ZtChildOf : public ZtChild {
 public:
  using Entry = T;  ///< what it holds

  /// As ZtChild::Set.
  int Set(T* child) { return ZtChild::Set(child); }
  /// Converts to what a getter returns.
  operator T*() const { return static_cast<T*>(Get()); }  // NOLINT(google-explicit-constructor)
};

/// Repeated children or attributes: a list that is made when the first one is added, null until
/// then. `Item` is XMLElement or XMLAttribute, and the list's entries are exactly such pointers.
template <class Item>
class ZT_API ZtOwnedList {
 public:
  ZtOwnedList() = default;
  ~ZtOwnedList();
  ZtOwnedList(const ZtOwnedList&) = delete;
  ZtOwnedList& operator=(const ZtOwnedList&) = delete;

  /// Takes `list` with its entries and deletes the one held before; changes nothing when `list` is
  /// held already or has an owner. Entries that have an owner are taken out of the list. Returns 1.
  [[gnu::cold]] int Set(ZtSingleElementList* list);
  /// Appends and takes `item`. Returns 1; 0, without taking it, when it is null, has an owner, or
  /// there is no memory. A new list is recorded under `source`; list and node lie in `arena` (null:
  /// the heap).
  int Add(Item* item, const char* source = "src/XMLList", ZtArena* arena = nullptr);
  ZtSingleElementList* Get() const { return m_pList; }
  /// Exchanges two lists.
  void Swap(ZtOwnedList& other) { std::swap(m_pList, other.m_pList); }
  /// The first node, null when there is none.
  ZtListNode* Head() const {
    if (!m_pList) return nullptr;
    // Log readers expect the line that an empty list logs when it is asked for its head.
    return m_pList->m_pHead ? m_pList->m_pHead : m_pList->GetPtrToListHead();
  }

 private:
  ZtSingleElementList* m_pList = nullptr;
};

extern template class ZtOwnedList<XMLElement>;
extern template class ZtOwnedList<XMLAttribute>;
/// Repeated children.
using ZtChildList = ZtOwnedList<XMLElement>;
/// Repeated children that are each a `T`.
template <class T>
class ZtChildListOf : public ZtChildList {
 public:
  using Entry = T;  ///< what it holds

  /// As ZtOwnedList::Add.
  int Add(T* child, const char* source = "src/XMLList", ZtArena* arena = nullptr) {
    return ZtChildList::Add(child, source, arena);
  }
  /// Converts to what a getter returns: the list, typed by its entries.
  operator ZtListOf<T>*() const {  // NOLINT(google-explicit-constructor)
    return static_cast<ZtListOf<T>*>(Get());
  }
};

/// Repeated attributes.
class ZtAttributeList : public ZtOwnedList<XMLAttribute> {
 public:
  /// Converts to what a getter returns: the list, typed by its entries.
  operator ZtListOf<zt_AttributeValuePair>*() const {  // NOLINT(google-explicit-constructor)
    return static_cast<ZtListOf<zt_AttributeValuePair>*>(Get());
  }
};

#endif  // ZTXML_INCLUDE_ZTHOLDERS_H
