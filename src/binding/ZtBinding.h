// What is offered to objects and taken from them by the rows of their types.
#ifndef ZTXML_SRC_BINDING_ZTBINDING_H
#define ZTXML_SRC_BINDING_ZTBINDING_H

#include "binding/ZtModel.h"

inline int ZtHookResult(ZtOutcome outcome) {
  return outcome == ZtOutcome::kAccepted || outcome == ZtOutcome::kAdopted;
}

// ---- Reading ------------------------------------------------------------------------------------

// The name under which a child is offered: its own, or at its end with a slash before it.
struct ZtChildName {
  const char* text;  // with the slash
  std::size_t size;
  bool atEnd;
  ZtNameId id;

  ZtChildName(const char* t)  // NOLINT(google-explicit-constructor)
      : ZtChildName(t, t ? __strlen(t) : 0) {}
  ZtChildName(const char* t, std::size_t s)
      : text(t),
        size(s),
        atEnd(s && *t == '/'),
        id(s ? ZtNameId::Of({t + atEnd, s - atEnd}) : ZtNameId(kZtNoName)) {}
  ZtChildName(ZtPiece name, bool end, ZtNameId known)
      : text(name.text), size(name.size), atEnd(end), id(known) {}
};

// What ProcessUnMarshall and ProcessUnMarshallAttribute do for an object of `type`, with the
// outcome told more finely than by their results. What is made lies in `arena`, null for the heap.
[[gnu::cold]] ZtOutcome ZtOfferChild(XMLElement& self, const ZtElementType& type,
                                     const ZtChildName& name, ZtPiece value, XMLElement* child,
                                     ZtArena* arena = nullptr);
[[gnu::cold]] ZtOutcome ZtOfferAttribute(XMLElement& self, const ZtElementType& type, ZtPiece name,
                                         const char* value, XMLAttribute* attribute,
                                         ZtArena* arena = nullptr);
// Keeps the value of a scalar field.
ZtOutcome ZtStore(XMLElement& self, const ZtField& field, ZtPiece value, const ZtArena* arena);
// What a row for children and texts does with what is offered under its name. That it has that name
// is known, and that the type's hook does not come first.
ZtOutcome ZtApplyRow(XMLElement& self, const ZtElementType& type, const ZtField& row, bool atEnd,
                     ZtPiece value, XMLElement* child, ZtArena* arena);
// Takes a child of the class that a row of objects has, at its start.
ZtOutcome ZtAdopt(XMLElement& self, const ZtField& field, XMLElement* child,
                  const ZtSource& source);
// The row of the attribute or of the child element `name`, or null.
const ZtField* ZtFindAttribute(const ZtElementType& type, ZtNameId name);
const ZtField* ZtFindChild(const ZtElementType& type, ZtNameId name);
// The row of the attribute `name`, or null. Attributes mostly come in the order of their rows: the
// search begins at `next`, the row after that of the attribute before.
// `Name`: a piece, or a padded one.
template <class Name>
const ZtField* ZtSearchAttribute(const ZtElementType& type, const ZtField*& next, Name name) {
  const auto find = [&](const ZtField* row, const ZtField* end) -> const ZtField* {
    for (; row != end; ++row) {
      if (row->name.Is(name) && row->place == ZtPlace::kAttribute) return row;
    }
    return nullptr;
  };
  const ZtField* row = find(next, type.children());
  if (!row) row = find(type.begin(), next);
  next = row ? row + 1 : type.begin();
  return row;
}
template <class Name>
[[gnu::always_inline]] inline const ZtField* ZtNextAttribute(const ZtElementType& type,
                                                             const ZtField* end,  // of the rows
                                                             const ZtField*& next, Name name) {
  const ZtField* const due = next;
  if (due == end || due->place != ZtPlace::kAttribute || !due->name.Is(name)) {
    return ZtSearchAttribute(type, next, name);
  }
  ++next;
  return due;
}
template <class Name>
const ZtField* ZtNextAttribute(const ZtElementType& type, const ZtField*& next, Name name) {
  return ZtNextAttribute(type, type.children(), next, name);
}
// The row of the child element `name` that has an object or a text, or null when it is to be looked
// for otherwise. Children mostly come in the order of their rows, each perhaps repeated: the search
// begins at `next`, which is where that of the next child begins then.
const ZtField* ZtSearchChild(const ZtElementType& type, const ZtField*& next, ZtPaddedPiece name);
[[gnu::always_inline]] inline const ZtField* ZtNextChild(const ZtElementType& type,
                                                         const ZtField*& next, ZtPaddedPiece name) {
  const ZtField* const due = next;
  if (due == type.end() || !(due->IsText() || due->IsObject()) || !due->name.Is(name)) {
    return ZtSearchChild(type, next, name);
  }
  if (!due->Repeats()) ++next;
  return due;
}
// The choice that the type has for the child element `name`, or null; and in a table that ends with
// none, the choice that names it.
const ZtChoice* ZtFindChoice(const ZtElementType& type, ZtNameId name);
const ZtChoice* ZtFindNamed(const ZtChoice* choices, ZtNameId name);

// ---- Writing ------------------------------------------------------------------------------------

constexpr std::size_t kZtNumberSize = 24;   // room for any number in decimal, with its NUL
constexpr unsigned kZtNotSet = 0xFFFFFFFF;  // an attribute of 32 bits that is not written

// `number` in decimal, with a NUL, in `buffer`, which has kZtNumberSize bytes.
ZtPiece ZtFormatNumber(unsigned long long number, char* buffer);

// The text of a scalar field, null when it is absent: a null text, a 0, kZtNotSet in an attribute,
// an index beyond the values.
// Numbers are formatted in `buffer`.
ZtPiece ZtFieldText(const XMLElement& self, const ZtField& field, char* buffer);

#endif  // ZTXML_SRC_BINDING_ZTBINDING_H
