// The values that rows may have: tables of enumerations, and ranges of numbers.
#ifndef ZTXML_SRC_BINDING_ZTENUMS_H
#define ZTXML_SRC_BINDING_ZTENUMS_H

#include <cstddef>
#include <cstdint>

#include "ztxml/ZtPiece.h"

// The values of an enumeration: slots of fixed width, of which a field holds the index. An index
// of `count` or more is absent or unknown and is not written. None holds a double quote.
class ZtEnumSlot {
 public:
  template <std::size_t N>
  constexpr ZtEnumSlot(const char (&text)[N])  // NOLINT(google-explicit-constructor)
      : m_iSize(N - 1) {
    static_assert(N > 1 && N <= sizeof(m_Text));
    for (std::size_t i = 0; i < N; ++i) m_Text[i] = text[i];
  }
  constexpr ZtPaddedPiece Piece() const { return {m_Text, m_iSize}; }

 private:
  char m_Text[31] = {};
  std::uint8_t m_iSize;
};
static_assert(sizeof(ZtEnumSlot) == 32);
constexpr std::uint8_t kZtKeepsValue = 0xFF;  // as `noMatch`: the field stays as it is

struct ZtEnumTable {
  const ZtEnumSlot* slots;
  std::uint8_t count;
  std::uint8_t searched;  // slots looked at on input; may run into the next table of the block
  std::uint8_t noMatch;   // index stored when none matches
  bool byPrefix;          // the first slot that is a prefix of the value, else the equal one
  bool respelt = false;   // the slots after the values spell these again, in their order

  unsigned Find(ZtPiece value) const;
};

// A table with slots of its own: each value is looked for, and what is none of them is stored as
// one more than the last.
template <std::size_t N>
struct ZtEnumOf : ZtEnumTable {
  template <std::size_t... kSizes>
  constexpr ZtEnumOf(const char (&... values)[kSizes])  // NOLINT(google-explicit-constructor)
      : ZtEnumTable{own, N, N, N, false}, own{values...} {}
  ZtEnumOf(const ZtEnumOf&) = delete;
  ZtEnumOf& operator=(const ZtEnumOf&) = delete;

  ZtEnumSlot own[N];
};
template <std::size_t... kSizes>
ZtEnumOf(const char (&... values)[kSizes]) -> ZtEnumOf<sizeof...(kSizes)>;

// Likewise, by beginnings.
template <std::size_t N>
struct ZtEnumByPrefix : ZtEnumOf<N> {
  template <std::size_t... kSizes>
  constexpr ZtEnumByPrefix(const char (&... values)[kSizes])  // NOLINT(google-explicit-constructor)
      : ZtEnumOf<N>(values...) {
    this->byPrefix = true;
  }
};
template <std::size_t... kSizes>
ZtEnumByPrefix(const char (&... values)[kSizes]) -> ZtEnumByPrefix<sizeof...(kSizes)>;

inline constexpr ZtEnumSlot kBooleanSlots[] = {"false", "true"};
// Intended: for most booleans any text but "true" is false, "1" too, which XML Schema takes for
// true; peers know the documents to behave so.
inline constexpr ZtEnumTable kTrueOrElseFalse = {kBooleanSlots, 2, 2, 0, false};

// A boolean as schemas have it: "1" is true, and any other text is false here.
inline constexpr ZtEnumSlot kSchemaBooleanSlots[] = {"false", "true", "0", "1"};
inline constexpr ZtEnumTable kSchemaTrueOrElseFalse = {kSchemaBooleanSlots, 2, 4, 0, false, true};

// The numbers that a field takes; others leave it as it is.
struct ZtRange {
  unsigned least;
  unsigned most;
  bool isDecimal = false;  // by its schema; the standard profile takes one without a fraction
};

#endif  // ZTXML_SRC_BINDING_ZTENUMS_H
