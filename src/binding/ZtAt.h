// Members of classes and entries as constants: what tables are made with.
#ifndef ZTXML_SRC_BINDING_ZTAT_H
#define ZTXML_SRC_BINDING_ZTAT_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

// A constant entry of a table with one of its members changed: what the chained builders of rows,
// types and documents are made of.
template <class T, class Member, class Value>
constexpr T ZtWith(T entry, Member T::*member, Value value) {
  entry.*member = value;
  return entry;
}

// Where a member of type `M` lies in an object: what ZT_AT gives. Schema types derive from
// XMLElement alone, so that this is as far from the object's beginning as from XMLElement's.
template <class M>
struct ZtAt {
  std::uint16_t offset;

  constexpr explicit ZtAt(std::uint16_t bytes) : offset(bytes) {}
  // What `Derived` derives from stands at its beginning.
  template <class Derived, class = std::enable_if_t<std::is_base_of_v<M, Derived>>>
  constexpr ZtAt(ZtAt<Derived> other)  // NOLINT(google-explicit-constructor)
      : offset(other.offset) {}
};
// The compilers that build the library have offsetof for all classes without virtual bases, and say
// of classes with virtual functions that others need not.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
#define ZT_AT(type, member) \
  ZtAt<decltype(type::member)> { offsetof(type, member) }

#endif  // ZTXML_SRC_BINDING_ZTAT_H
