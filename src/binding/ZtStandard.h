// The standard profile's view of rows: which row an element or attribute belongs to by its expanded
// name, and what its text means by the type that its schema gives it.
#ifndef ZTXML_SRC_BINDING_ZTSTANDARD_H
#define ZTXML_SRC_BINDING_ZTSTANDARD_H

#include "binding/ZtBinding.h"
#include "text/ZtCharacters.h"

// The rows by which the standard profile reads and writes objects of `type`.
inline const ZtElementType& ZtStandardOf(const ZtElementType& type) {
  return type.extras->standard ? *type.extras->standard : type;
}

// ---- Names --------------------------------------------------------------------------------------

// Whether a row's child element occurs at most once.
[[gnu::always_inline]] inline bool ZtIsSingle(const ZtField& row) {
  return row.place == ZtPlace::kTextElement || row.place == ZtPlace::kChild ||
         row.place == ZtPlace::kOtherChild;
}

// A row's bit in a set of those of its type.
inline std::uint64_t ZtRowBit(const ZtElementType& type, const ZtField& row) {
  return std::uint64_t{1} << (&row - type.begin());
}

// The row whose texts alternate with those of a row, null for most.
inline const ZtField* ZtPartnerOf(const ZtElementType& type, const ZtField& row) {
  if (row.Is(kZtPaired)) return &row + 1;
  return &row != type.begin() && (&row)[-1].Is(kZtPaired) ? &row - 1 : nullptr;
}

// The row of a type that keeps attributes which no row names.
inline const ZtField& ZtOthersOf(const ZtElementType& type) {
  const ZtField* row = type.begin();
  while (row->place != ZtPlace::kOtherAttributes) ++row;
  return *row;
}

// Whether objects of a type keep an attribute that no row names. The prefix in the value of
// xsi:type would be bound to nothing where the attribute is written.
inline bool ZtKeepsAttribute(const ZtElementType& type, ZtSpace space, ZtPiece local) {
  return type.rows.keepsAttributes &&
         (space != kZtSpaceInstance || ZtNameId::Of(local) != ZtNameId(XML_STR_TYPE));
}

// What an element is to its parent.
struct ZtMatch {
  const ZtField* row = nullptr;         // null: nothing that the parent knows
  const ZtElementType* type = nullptr;  // of its object; null for a text
  ZtSpace space = kZtNoSpace;           // of the element
  ZtSpace inside = kZtNoSpace;          // of its children
};

// `space` is that of the parent's children. An element in no namespace matches where `plain` says
// that the document has none. `next` is the row that it probably has, or the parent's end(), and
// that of the next child then.
ZtMatch ZtMatchChild(const ZtElementType& parent, const ZtField*& next, ZtSpace space,
                     ZtSpace actual, ZtPiece local, bool plain);
// What the object `child`, kept by `row` of a parent, is when it is written; without a row when
// it cannot be.
ZtMatch ZtMatchObject(const ZtField& row, ZtSpace space, const XMLElement& child);
// The local name that an object has: of the row, or of the choice that it is; null when it has
// none.
ZtPiece ZtNameOfObject(const ZtField& row, const XMLElement& child);

// Which one among its like an entry of a row's list is, from 1 on; 0 in a row that occurs once. For
// paths: the list is gone through.
std::uint32_t ZtIndexOf(const XMLElement& parent, const ZtField& row, const XMLElement& entry);

// ---- Values -------------------------------------------------------------------------------------

// What a document states, or an object holds, in a scalar row.
struct ZtStated {
  bool stated = false;
  unsigned long long number = 0;  // of an enumeration the index
  ZtPiece text = nullptr;

  static ZtStated Number(unsigned long long n) { return {true, n, nullptr}; }
  static ZtStated Text(ZtPiece t) { return {t.text != nullptr, 0, t}; }
};
bool operator==(const ZtStated& one, const ZtStated& other);

// Without the white space at its ends, which most texts do not have.
ZtPiece ZtTrimmedEnds(ZtPiece text);
[[gnu::always_inline]] inline ZtPiece ZtTrimmed(ZtPiece text) {
  const bool has = text.size && (*text.text <= ' ' || text.text[text.size - 1] <= ' ');
  return has ? ZtTrimmedEnds(text) : text;
}
// What `text` means in `row`; nothing is stated when it is no value of the row's type.
ZtStated ZtParseScalar(const ZtField& row, ZtPiece text);
[[gnu::always_inline]] inline ZtStated ZtParse(const ZtField& row, ZtPiece text) {
  if (row.value != ZtValue::kText) return ZtParseScalar(row, text);
  return ZtStated::Text(row.Is(kZtFreeText) ? text : ZtTrimmed(text));
}
// What `object` holds in `row`.
ZtStated ZtHeld(const XMLElement& object, const ZtField& row);
// Whether what it held was lost: there was no memory for it when it was set.
inline bool ZtIsLost(const XMLElement& object, const ZtField& row) {
  return row.value == ZtValue::kText && row.Text(object).IsLost();
}
// The text of it, unescaped; numbers are formatted in `buffer` (kZtNumberSize).
ZtPiece ZtTextOf(const ZtField& row, const ZtStated& value, char* buffer);
// The text of what `object` holds in `row`, null for nothing.
ZtPiece ZtTextHeld(const XMLElement& object, const ZtField& row, char* buffer);
// Keeps what is stated; a text stays in place where `arena` holds it. False without memory.
bool ZtKeep(XMLElement& object, const ZtField& row, const ZtStated& value, const ZtArena* arena);
// The value is stated no more: it reads as its default.
void ZtClear(XMLElement& object, const ZtField& row);
// Gives a new object the defaults of its schema.
void ZtSetDefaults(XMLElement& object, const ZtElementType& type);

// Whether a field holds what `text` means in its row.
bool ZtHolds(const XMLElement& object, const ZtField& row, ZtPiece text);
// Whether an object is a flag: the library's own class names are told by where they lie.
inline bool ZtIsFlag(const XMLElement& object) {
  return object.ClassName() == zt_empty_element_type::kType.className;
}

// Whether the standard profile writes nothing without it.
inline bool ZtIsRequired(const ZtField& row) { return row.Is(kZtRequired) || row.Is(kZtMust); }

#endif  // ZTXML_SRC_BINDING_ZTSTANDARD_H
