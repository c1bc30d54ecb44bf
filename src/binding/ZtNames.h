// Every name that rows can refer to: the shared table and a few names beyond it.
#ifndef ZTXML_SRC_BINDING_ZTNAMES_H
#define ZTXML_SRC_BINDING_ZTNAMES_H

#include <cstddef>
#include <cstdint>

#include "base/ZtBytes.h"
#include "ztxml/XMLCommonDef.h"
#include "ztxml/ZtPiece.h"

// The names beyond the table; their numbers follow those of its rows.
enum ZtExtraName : int {
  kZtLastTableName = XML_STR_ZT_COUNT - 1,
#define ZT_NAME(id, text) id,
#include "binding/ZtExtraNames.inc"
#undef ZT_NAME
  kZtNameCount,
  kZtNoName = -1,
};

// A row of the table or an extra name. Equal texts have one number.
class ZtNameId {
 public:
  constexpr ZtNameId(e_XmlStrRef row)  // NOLINT(google-explicit-constructor)
      : ZtNameId(static_cast<ZtExtraName>(row == XML_STR_SIMSERVS_2 ? XML_STR_SIMSERVS
                                          : row == XML_STR_ALLOW_2  ? XML_STR_ALLOW
                                                                    : row)) {}
  constexpr ZtNameId(ZtExtraName extra)  // NOLINT(google-explicit-constructor)
      : m_Id(static_cast<std::int16_t>(extra)) {}
  // The name whose text is `text`, kZtNoName when there is none.
  static ZtNameId Of(ZtPiece text);
  // Whether its text is `text`, which is not empty.
  bool Is(ZtPiece text) const;
  [[gnu::always_inline]] bool Is(ZtPaddedPiece text) const;

  // The name as a number, and back.
  constexpr int Id() const { return m_Id; }
  static constexpr ZtNameId OfId(int id) { return static_cast<ZtExtraName>(id); }

  constexpr unsigned Low6Bits() const { return static_cast<unsigned>(m_Id) & 63U; }
  constexpr bool IsNone() const { return m_Id == XML_STR_ZT_NULL; }
  constexpr bool operator==(ZtNameId other) const { return m_Id == other.m_Id; }
  constexpr bool operator!=(ZtNameId other) const { return m_Id != other.m_Id; }

  const char* Text() const;
  ZtPaddedPiece Piece() const;

 private:
  std::int16_t m_Id;
};

// Names that may be among some rows: most that are not are told at once.
class ZtNameFilter {
 public:
  constexpr void Add(ZtNameId name) { m_Bits |= Bit(name); }
  constexpr bool MayHave(ZtNameId name) const { return (m_Bits & Bit(name)) != 0; }

 private:
  static constexpr std::uint64_t Bit(ZtNameId name) { return std::uint64_t{1} << name.Low6Bits(); }

  std::uint64_t m_Bits = 0;
};

// The names beyond the table, and the sizes of all.
constexpr std::size_t kZtExtraNameSize = 48;
constexpr int kZtExtraNameCount = int{kZtNameCount} - int{XML_STR_ZT_COUNT};
extern const char kZtExtraNames[kZtExtraNameCount][kZtExtraNameSize];
extern const std::uint8_t kZtNameSizes[kZtNameCount];

inline const char* ZtNameId::Text() const {
  const std::size_t id = static_cast<std::uint16_t>(m_Id);
  return id < XML_STR_ZT_COUNT ? zt_xml_common_array_definition::arrXmlStrRef[id]
                               : kZtExtraNames[id - XML_STR_ZT_COUNT];
}

inline bool ZtNameId::Is(ZtPiece text) const {
  if (text.size != kZtNameSizes[m_Id]) return false;
  const char* own = Text();
  return *text.text == *own && ZtSameBytes(own, text.text, text.size);
}

inline bool ZtNameId::Is(ZtPaddedPiece text) const {
  if (text.size != kZtNameSizes[m_Id]) return false;
  const char* const own = Text();
  if (!kZtHasVectors) return std::memcmp(own, text.text, text.size) == 0;
  const auto differ = [](const char* a, const char* b) {
    return ZtBits(reinterpret_cast<ZtBlock>(ZtGet<ZtBlock>(a) != ZtGet<ZtBlock>(b)));
  };
  constexpr std::size_t kBlock = sizeof(ZtBlock);
  const unsigned first = differ(own, text.text);
  if (text.size <= kBlock) return first << (32 - text.size) == 0;
  const std::size_t last = text.size - kBlock;
  if (first || differ(own + last, text.text + last)) return false;
  return text.size <= 2 * kBlock || std::memcmp(own, text.text, text.size) == 0;
}

inline ZtPaddedPiece ZtNameId::Piece() const {
  const std::size_t id = static_cast<std::uint16_t>(m_Id);
  return {Text(), kZtNameSizes[id]};
}

inline const char* ZtName(ZtNameId id) { return id.Text(); }

#endif  // ZTXML_SRC_BINDING_ZTNAMES_H
