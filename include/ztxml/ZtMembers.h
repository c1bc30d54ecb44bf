// Values of schema types as public members, which callers set and ask for in one way each:
//
//     dialog->id.Set("d7");
//     dialog->direction.Set(zt_dialog_direction::kInitiator);
//     if (const auto code = state->code()) ...           // a member that is called gives its value
//     for (zt_dialog& dialog : info->dialogs) ...
//
// What ZtHolders.h says of taking and owning holds for them. They hold nothing else than what they
// are declared with: what they derive from is for the library's rows alone.
#ifndef ZTXML_INCLUDE_ZTMEMBERS_H
#define ZTXML_INCLUDE_ZTMEMBERS_H

#include <optional>
#include <type_traits>

#include "ztxml/ZtHolders.h"
#include "ztxml/ZtListOf.h"

/// A text.
class ZtTextMember : private ZtText {
 public:
  /// Stores a copy; null clears. Callers escape what markup could be. False without memory: the
  /// text is null then.
  bool Set(const char* text) { return ZtText::Set(text); }
  /// The text; null when it is absent.
  const char* operator()() const { return Get(); }
};

/// A number, a truth value, or an enumeration, which ends with kAbsent for none of its values.
template <class Value>
class ZtNumberMember
    : private std::conditional_t<(sizeof(Value) > sizeof(unsigned)), ZtNumber64, ZtNumber> {
  using Base = std::conditional_t<(sizeof(Value) > sizeof(unsigned)), ZtNumber64, ZtNumber>;

 public:
  ZtNumberMember() {
    if constexpr (std::is_enum_v<Value>) Base::operator=(static_cast<unsigned>(Value::kAbsent));
  }
  /// Stores it, and that it is stated. True.
  bool Set(Value value) { return Base::Set(value) != 0; }
  /// The value that is stated, also 0; std::nullopt when there is none, or none of the
  /// enumeration's.
  std::optional<Value> operator()() const {
    if constexpr (std::is_enum_v<Value>) {
      return Base::Stated(Value::kAbsent);
    } else {
      return Base::template Stated<Value>();
    }
  }
};

/// A child that occurs at most once.
template <class T>
class ZtChildMember : private ZtChildOf<T> {
 public:
  using Entry = T;  ///< what it holds

  /// Takes `child` and deletes the one held before; null only deletes. False, without taking it,
  /// when `child` has another owner.
  bool Set(T* child) { return this->Take(child); }
  /// The child; null when there is none.
  T* operator()() const { return *this; }
};

/// Children that may be many.
template <class T>
class ZtListMember : private ZtChildListOf<T> {
 public:
  using Entry = T;  ///< what it holds

  using ZtChildListOf<T>::Set;  ///< takes a list, as ZtOwnedList::Set says
  /// Appends and takes `child`. False, without taking it, when it is null or owned, or there is no
  /// memory.
  bool Add(T* child) { return ZtChildListOf<T>::Add(child) != 0; }
  /// The list; null before the first entry. It is typed by its entries.
  ZtListOf<T>* operator()() const { return *this; }
  /// The first entry. A loop may remove and delete the entry that it is at, but no other.
  typename ZtEntries<T>::Iterator begin() const { return ZtEntries<T>(this->Get()).begin(); }
  /// Where a walk ends.
  typename ZtEntries<T>::Iterator end() const { return ZtEntries<T>(this->Get()).end(); }
};

#endif  // ZTXML_INCLUDE_ZTMEMBERS_H
