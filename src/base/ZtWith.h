// A copy of a constant table entry with one member changed. The chained builders of rows, types and
// documents are made of it.
#ifndef ZTXML_SRC_BASE_ZTWITH_H
#define ZTXML_SRC_BASE_ZTWITH_H

template <class T, class Member, class Value>
constexpr T ZtWith(T entry, Member T::*member, Value value) {
  entry.*member = value;
  return entry;
}

#endif  // ZTXML_SRC_BASE_ZTWITH_H
