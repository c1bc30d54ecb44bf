// A schema type as data: rows that say which attributes, texts and children a type has and where
// it keeps them. One interpreter reads and one writer writes every type by its rows.
#ifndef ZTXML_SRC_BINDING_ZTBINDING_H
#define ZTXML_SRC_BINDING_ZTBINDING_H

#include <cstddef>
#include <cstdint>

#include "XMLValueTypes.h"
#include "ZtElement.h"
#include "ZtPiece.h"
#include "base/ZtMemory.h"
#include "base/ZtWith.h"
#include "binding/ZtNames.h"
#include "ztPlatform.h"

// ---- Values -------------------------------------------------------------------------------------

// The values of an enumeration: slots of fixed width, of which a field holds the index. An index
// of `count` or more is absent or unknown and is not written.
class ZtEnumSlot {
 public:
  template <std::size_t N>
  constexpr ZtEnumSlot(const char (&text)[N])  // NOLINT(google-explicit-constructor)
      : m_iSize(N - 1) {
    static_assert(N > 1 && N <= sizeof(m_Text));
    for (std::size_t i = 0; i < N; ++i) m_Text[i] = text[i];
  }
  constexpr ZtPiece Piece() const { return {m_Text, m_iSize}; }

 private:
  char m_Text[31] = {};
  std::uint8_t m_iSize;
};
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

inline constexpr ZtEnumSlot kBooleanSlots[] = {"false", "true"};
// Intended: for most booleans any text but "true" is false, "1" too, which XML Schema takes for
// true; peers know the documents to behave so.
inline constexpr ZtEnumTable kTrueOrElseFalse = {kBooleanSlots, 2, 2, 0, false};

// A boolean as schemas have it: "1" is true, and any other text is false here.
inline constexpr ZtEnumSlot kSchemaBooleanSlots[] = {"false", "true", "0", "1"};
inline constexpr ZtEnumTable kSchemaTrueOrElseFalse = {kSchemaBooleanSlots, 2, 4, 0, false, true};

// Where a field lives in its object. A member of a derived type is reached through the base: the
// object's dynamic type has it.
union ZtMember {
  ZtText XMLElement::*text;
  ZtNumber XMLElement::*number;  // also the index of an enumeration
  ZtNumber64 XMLElement::*number64;
  ZtChild XMLElement::*child;
  ZtChildList XMLElement::*children;
  ZtAttributeList XMLElement::*attributes;

  constexpr explicit ZtMember(ZtText XMLElement::*m) : text(m) {}
  constexpr explicit ZtMember(ZtNumber XMLElement::*m) : number(m) {}
  constexpr explicit ZtMember(ZtNumber64 XMLElement::*m) : number64(m) {}
  constexpr explicit ZtMember(ZtChild XMLElement::*m) : child(m) {}
  constexpr explicit ZtMember(ZtChildList XMLElement::*m) : children(m) {}
  constexpr explicit ZtMember(ZtAttributeList XMLElement::*m) : attributes(m) {}
};

// ---- Rows ---------------------------------------------------------------------------------------

enum class ZtPlace : std::uint8_t {
  kAttribute,        // an attribute of the element
  kTextElement,      // a child element of which the text is kept
  kTextElements,     // a repeated one; the texts are kept as zt_string
  kOwnText,          // the element's own text
  kOwnWords,         // the same, split at its blanks; the words are kept as zt_string
  kChild,            // a child element that occurs at most once
  kChildren,         // a repeated child element
  kOtherChildren,    // child elements that no row names
  kOtherAttributes,  // attributes that no row names
};

enum class ZtValue : std::uint8_t { kObject, kText, kNumber, kNumber64, kEnum };

// One of the elements that may stand in a list of mixed children, or in the place of one child. A
// table of these ends with one that has no type.
struct ZtChoice {
  ZtNameId name = XML_STR_ZT_NULL;       // ZT_NULL: any that neither a row nor another choice names
  e_XmlStrRef prefix = XML_STR_ZT_NULL;  // it is written with; ZT_NULL for the type's own
  const ZtNameId* others = nullptr;      // further names, up to ZT_NULL
  const ZtElementType* type = nullptr;   // by which it is read
  const ZtElementType* writer = nullptr;  // by which it is written; null: it is kept only

  constexpr ZtChoice() = default;
  constexpr ZtChoice(ZtNameId element, const ZtElementType& t, e_XmlStrRef p = XML_STR_ZT_NULL)
      : name(element), prefix(p), type(&t), writer(&t) {}
  constexpr ZtChoice Or(const ZtNameId* names) const {
    return ZtWith(*this, &ZtChoice::others, names);
  }
  constexpr ZtChoice WrittenBy(const ZtElementType* table) const {
    return ZtWith(*this, &ZtChoice::writer, table);
  }
  constexpr ZtChoice NotWritten() const { return WrittenBy(nullptr); }
};

// The numbers that a field takes; others leave it as it is.
struct ZtRange {
  unsigned least;
  unsigned most;
};

union ZtFieldDetail {
  const ZtRange* range;       // kNumber, null for all
  const ZtEnumTable* values;  // kEnum
  const ZtElementType* type;  // kChild, kChildren
  const ZtChoice* choices;    // kOtherChildren, null for none

  constexpr ZtFieldDetail() : range(nullptr) {}
  constexpr explicit ZtFieldDetail(const ZtRange* r) : range(r) {}
  constexpr explicit ZtFieldDetail(const ZtEnumTable* v) : values(v) {}
  constexpr explicit ZtFieldDetail(const ZtElementType* t) : type(t) {}
  constexpr explicit ZtFieldDetail(const ZtChoice* c) : choices(c) {}
};

// One row. The order of a type's rows is the order of output, attributes before children.
struct ZtField {
  ZtMember member;
  ZtFieldDetail detail;
  // What the writer logs: when a required value is absent or an optional one with a note is; when
  // a child fails (%d is its index), instead of the family's line; when an element of a mixed list
  // cannot be written (%s is its class name).
  const char* line = nullptr;
  const char* writer = nullptr;  // the name that the writer of a text element logs
  ZtNameId name = XML_STR_ZT_NULL;
  ZtPlace place;
  ZtValue value;
  std::uint8_t lineLevel = 0;
  bool required = false;       // absent: the element cannot be written
  bool always = false;         // written also when absent (a null text as an empty value); a null
                               // text of several is kept as an empty one
  bool atEnd = false;          // a child that is made at its end tag and offered with its text
  bool fromAttribute = false;  // a text that comes under its plain name, as attributes do
  bool madeHere = false;       // a child that its parent makes, at its end tag, from its text
  bool lenient = false;        // a child that cannot be written does not fail its parent
  bool oneOf = false;          // of the rows with this mark only the first that is set is written

  constexpr ZtField(ZtPlace p, ZtValue v, ZtNameId n, ZtMember m, ZtFieldDetail d = ZtFieldDetail())
      : member(m), detail(d), name(n), place(p), value(v) {}

  constexpr ZtField Required(const char* missing, int level) const {
    return ZtWith(Note(missing, level), &ZtField::required, true);
  }
  constexpr ZtField Always() const { return ZtWith(*this, &ZtField::always, true); }
  constexpr ZtField AtEnd() const { return ZtWith(*this, &ZtField::atEnd, true); }
  constexpr ZtField FromAttribute() const { return ZtWith(*this, &ZtField::fromAttribute, true); }
  constexpr ZtField MadeHere() const { return ZtWith(*this, &ZtField::madeHere, true); }
  constexpr ZtField Lenient() const { return ZtWith(*this, &ZtField::lenient, true); }
  constexpr ZtField OneOf() const { return ZtWith(*this, &ZtField::oneOf, true); }
  constexpr ZtField Writer(const char* text) const { return ZtWith(*this, &ZtField::writer, text); }
  constexpr ZtField Note(const char* text, int level = 2) const {
    return ZtWith(ZtWith(*this, &ZtField::line, text), &ZtField::lineLevel,
                  static_cast<std::uint8_t>(level));
  }

  constexpr bool IsAttribute() const {
    return place == ZtPlace::kAttribute || place == ZtPlace::kOtherAttributes;
  }
  constexpr bool IsOwnText() const {
    return place == ZtPlace::kOwnText || place == ZtPlace::kOwnWords;
  }
  // Whether it is of a child element that has an object, made at its start.
  constexpr bool IsObject() const {
    return (place == ZtPlace::kChild || place == ZtPlace::kChildren) && !atEnd && !madeHere;
  }
  // Whether nothing but a text, kept at its end, is to be had of the child element.
  constexpr bool IsText() const {
    return (place == ZtPlace::kTextElement || place == ZtPlace::kTextElements) && !fromAttribute;
  }
  constexpr bool HasName() const {
    return place != ZtPlace::kOtherChildren && place != ZtPlace::kOtherAttributes;
  }
};

// Builders of rows, by the kind of the member. They are qualified because the types' members hide
// short names.
namespace ztrow {

template <class M, class D>
constexpr ZtMember At(M D::*member) {
  return ZtMember(static_cast<M XMLElement::*>(member));
}

// What a scalar member holds.
constexpr ZtValue ValueOf(ZtText XMLElement::*) { return ZtValue::kText; }
constexpr ZtValue ValueOf(ZtNumber XMLElement::*) { return ZtValue::kNumber; }
constexpr ZtValue ValueOf(ZtNumber64 XMLElement::*) { return ZtValue::kNumber64; }

template <class M, class D>
constexpr ZtField Attribute(ZtNameId name, M D::*m) {
  return {ZtPlace::kAttribute, ValueOf(static_cast<M XMLElement::*>(m)), name, At(m)};
}
template <class D>
constexpr ZtField Attribute(ZtNameId name, ZtNumber D::*m, const ZtEnumTable& values) {
  return {ZtPlace::kAttribute, ZtValue::kEnum, name, At(m), ZtFieldDetail(&values)};
}
template <class M, class D>
constexpr ZtField TextElement(ZtNameId name, M D::*m) {
  return {ZtPlace::kTextElement, ValueOf(static_cast<M XMLElement::*>(m)), name, At(m)};
}
template <class D>
constexpr ZtField TextElement(ZtNameId name, ZtNumber D::*m, const ZtEnumTable& values) {
  return {ZtPlace::kTextElement, ZtValue::kEnum, name, At(m), ZtFieldDetail(&values)};
}
// A repeated text element; the list holds zt_string.
template <class D>
constexpr ZtField TextElements(ZtNameId name, ZtChildList D::*m) {
  return {ZtPlace::kTextElements, ZtValue::kText, name, At(m)};
}
// The element's own text; `name` is the element's.
template <class D>
constexpr ZtField OwnText(ZtNameId name, ZtText D::*m) {
  return {ZtPlace::kOwnText, ZtValue::kText, name, At(m)};
}
template <class D>
constexpr ZtField OwnText(ZtNameId name, ZtNumber D::*m, const ZtEnumTable& values) {
  return {ZtPlace::kOwnText, ZtValue::kEnum, name, At(m), ZtFieldDetail(&values)};
}
template <class D>
constexpr ZtField OwnText(ZtNameId name, ZtNumber D::*m, const ZtRange& range) {
  return ZtField(ZtPlace::kOwnText, ZtValue::kNumber, name, At(m), ZtFieldDetail(&range)).Always();
}
// The same as words, one blank between them: n blanks make n + 1 words, of which any may be empty.
template <class D>
constexpr ZtField OwnWords(ZtNameId name, ZtChildList D::*m) {
  return {ZtPlace::kOwnWords, ZtValue::kText, name, At(m)};
}
template <class D>
constexpr ZtField Child(ZtNameId name, ZtChild D::*m, const ZtElementType& type) {
  return {ZtPlace::kChild, ZtValue::kObject, name, At(m), ZtFieldDetail(&type)};
}
template <class D>
constexpr ZtField Children(ZtNameId name, ZtChildList D::*m, const ZtElementType& type) {
  return {ZtPlace::kChildren, ZtValue::kObject, name, At(m), ZtFieldDetail(&type)};
}
// Kept and not written; the row's note is logged instead when there is such a list.
template <class D>
constexpr ZtField OtherChildren(ZtChildList D::*m) {
  return {ZtPlace::kOtherChildren, ZtValue::kObject, XML_STR_ZT_NULL, At(m),
          ZtFieldDetail(static_cast<const ZtChoice*>(nullptr))};
}
// Kept, and written when their class is among `choices`; the row's note is logged for others.
template <class D>
constexpr ZtField OtherChildren(ZtChildList D::*m, const ZtChoice* choices) {
  return {ZtPlace::kOtherChildren, ZtValue::kObject, XML_STR_ZT_NULL, At(m),
          ZtFieldDetail(choices)};
}
// Kept, and written back in the order received.
template <class D>
constexpr ZtField OtherAttributes(ZtAttributeList D::*m) {
  return {ZtPlace::kOtherAttributes, ZtValue::kObject, XML_STR_ZT_NULL, At(m)};
}

}  // namespace ztrow

// The rows of what ZtExtensible<Base> and ZtKeepsElements<Base> keep.
struct ZtExtensibleRows {
  template <class Base>
  static constexpr ZtField kAttributes =
      ztrow::OtherAttributes(&ZtExtensible<Base>::m_AnyAttributes);
  template <class Base>
  static constexpr ZtField kElements = ztrow::OtherChildren(&ZtKeepsElements<Base>::m_AnyElements);
  // Elements that are kept, of which those among `choices` are written.
  template <class Base>
  static constexpr ZtField Elements(const ZtChoice* choices) {
    return ztrow::OtherChildren(&ZtKeepsElements<Base>::m_AnyElements, choices);
  }
};

inline constexpr ZtField kZtExtras = ZtExtensibleRows::kAttributes<ZtElement>;
inline constexpr ZtField kZtOthers = ZtExtensibleRows::kElements<ZtElement>;

namespace ztrow {

// Whether rows can be meant: attributes before children, no name twice in one place, at most one
// row for the rest.
template <std::size_t N>
constexpr bool Sound(const ZtField (&rows)[N]) {
  bool children = false;
  for (std::size_t i = 0; i < N; ++i) {
    if (rows[i].IsAttribute() && children) return false;
    children = children || !rows[i].IsAttribute();
    for (std::size_t j = 0; j < i; ++j) {
      if (rows[i].IsAttribute() == rows[j].IsAttribute() && rows[i].name == rows[j].name &&
          rows[i].HasName() == rows[j].HasName()) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace ztrow

// ---- Types --------------------------------------------------------------------------------------

// What a type does with a child or attribute that no row names and no list keeps.
enum class ZtUnknown : std::uint8_t { kIgnore, kRefuse };

// The log lines of a type's hooks; null for none. The first %s is the class name.
struct ZtHookLines {
  const char* nullElement;
  const char* nullAttribute;
  const char* noObject;
  const char* noClass;
  const char* wrongClass;        // class name, class received, class expected
  const char* unknownAttribute;  // class name, attribute
};

// What the types of one document have in common.
struct ZtFamily {
  const char* source;  // file under which they log and are recorded
  const ZtHookLines* lines;
  const char* unknownElement;  // name, value; for children without an object
  const char* childFailed;     // the failing child's writer
  ZtUnknown unknownAttribute;
  // File under which the objects of these types, and all that is made inside one, are recorded
  // when a document is read; null for the decoder's.
  const char* recordedUnder = nullptr;
  // What a writer logs on entry, with its name.
  const char* entryLine = "<XML Module>: %s";
  int entryLevel = 2;
  // Whether the names of its types' children make objects only inside these types.
  bool namesStayInside = false;
  // What becomes of a child that has no class name, under a name that asks for one.
  ZtUnknown nullClass = ZtUnknown::kIgnore;

  constexpr ZtFamily NamesStayInside() const {
    return ZtWith(*this, &ZtFamily::namesStayInside, true);
  }
  constexpr ZtFamily RefusesNullClasses() const {
    return ZtWith(*this, &ZtFamily::nullClass, ZtUnknown::kRefuse);
  }
  constexpr ZtFamily Enters(const char* line, int level) const {
    return ZtWith(ZtWith(*this, &ZtFamily::entryLine, line), &ZtFamily::entryLevel, level);
  }
};

// What most documents say of an unknown element.
inline constexpr char kCannotAccommodate[] = "Cannot accommodate the element %s with value %s";

// The family of types that log nothing of their own and ignore what they do not know.
inline constexpr ZtHookLines kZtNoHookLines = {};
constexpr ZtFamily ZtQuietFamily(const char* source, const char* recordedUnder = nullptr) {
  return {source, &kZtNoHookLines, nullptr, nullptr, ZtUnknown::kIgnore, recordedUnder};
}

// The family of most documents.
constexpr ZtFamily ZtPlainFamily(const char* source) {
  return {source, &kZtNoHookLines, kCannotAccommodate, "<XML Module>: %s XML Failed!",
          ZtUnknown::kIgnore};
}

// An attribute that an element always carries: name="value", or name:suffix="value" unless the
// suffix is ZT_NULL. Mostly a namespace declaration.
struct ZtFixedAttribute {
  ZtNameId value;
  e_XmlStrRef suffix;
  e_XmlStrRef name = XML_STR_XMLNS;
};

enum class ZtOutcome : unsigned char {
  kRefused,
  kAccepted,  // taken as a text or number, or ignored: an offered object stays the offerer's
  kAdopted,   // the offered object belongs to the element now
  kNoMemory,  // an offered object stays the offerer's
};
inline int ZtHookResult(ZtOutcome outcome) {
  return outcome == ZtOutcome::kAccepted || outcome == ZtOutcome::kAdopted;
}

class ZtElementWriter;

// Hooks are asked before the rows; false leaves the matter to them. A content hook writes what
// stands between the start and the end tag; false fails the element, which then has no end tag. A
// write hook writes all of it.
using ZtAttributeHook = bool (*)(XMLElement& self, const char* name, const char* value,
                                 ZtOutcome& outcome);
using ZtChildHook = bool (*)(XMLElement& self, const char* name, const char* value,
                             XMLElement* child, ZtOutcome& outcome);
using ZtContentHook = bool (*)(ZtElementWriter& writer, const XMLElement& self,
                               const ZtElementType& type);
using ZtWriteHook = ZtContentHook;

// How an element whose presence is the value is written. In its lines %s is the marshaller.
struct ZtFlag {
  const char* absentLine;
  const char* nullLine = nullptr;
  // Bytes of its name that are written. 0 for one that is written as it stands, and is nothing when
  // the flag has none; the others cannot be written without a name.
  std::size_t mostName = 0;
};

struct ZtElementType {
  const char* className;
  const char* label;
  const ZtFamily* family;
  ZtMaker<XMLElement> maker;
  const ZtField* fields = nullptr;
  const ZtChoice* choices = nullptr;        // elements in it that are no rows'; ends with none
  const char* unknownElement = nullptr;     // instead of the family's
  const ZtFixedAttribute* fixed = nullptr;  // attributes that its start tag always carries
  const char* writer = nullptr;             // the name its writer logs; null logs nothing
  const char* entryLine = nullptr;          // instead of the family's line with that name
  const char* failedAs = nullptr;           // instead of its marshaller, when Marshall fails
  const ZtFlag* flag = nullptr;             // only an element whose presence is the value has it
  // The last resort, for what no row can say.
  ZtAttributeHook attributeHook = nullptr;
  ZtChildHook childHook = nullptr;
  ZtContentHook contentHook = nullptr;
  ZtWriteHook writeHook = nullptr;
  // Unless its parent's row names it; without either only its content is written.
  ZtNameId tag = XML_STR_ZT_NULL;
  e_XmlStrRef prefix = XML_STR_ZT_NULL;  // written with it and all that is in it
  std::uint8_t fieldCount = 0;
  std::uint8_t attributeCount = 0;  // of the fields, which begin with them
  std::uint8_t fixedCount = 0;
  ZtNameFilter names = {};  // of the rows
  // What the rows hold: one of a text that comes as an attribute, one of other attributes,
  bool textsFromAttributes = false;
  bool keepsAttributes = false;
  bool takesText = false;  // one of the element's own text
  // The names of its children make objects only inside it. Other types' do so anywhere in the
  // document: whoever does not know them decides what becomes of the objects.
  bool namesStayInside = false;
  bool root = false;
  bool selfClosing = false;
  bool checksFirst = false;   // without a required attribute nothing of it is written
  bool staysOpen = false;     // only an attribute closes its start tag
  bool awaitsExtras = false;  // a list of other attributes that is empty leaves its start tag open
  ZtUnknown unknownChild = ZtUnknown::kIgnore;
  ZtUnknown unknownAttribute = ZtUnknown::kIgnore;  // or what the family says

  template <std::size_t N>
  constexpr ZtElementType Fields(const ZtField (&rows)[N]) const {
    ZtElementType type = *this;
    type.fields = rows;
    type.fieldCount = static_cast<std::uint8_t>(N);
    type.attributeCount = 0;
    for (const ZtField& row : rows) {
      if (row.IsAttribute()) ++type.attributeCount;
      type.names.Add(row.name);
      type.textsFromAttributes = type.textsFromAttributes || row.fromAttribute;
      type.keepsAttributes = type.keepsAttributes || row.place == ZtPlace::kOtherAttributes;
      type.takesText = type.takesText || row.IsOwnText();
      if (row.place == ZtPlace::kOtherChildren) type.choices = row.detail.choices;
    }
    return type;
  }
  constexpr ZtElementType Writer(ZtNameId element, const char* name,
                                 e_XmlStrRef withPrefix = XML_STR_ZT_NULL) const {
    return ZtWith(ZtWith(ZtWith(*this, &ZtElementType::tag, element), &ZtElementType::writer, name),
                  &ZtElementType::prefix, withPrefix);
  }
  template <std::size_t N>
  constexpr ZtElementType Declares(const ZtFixedAttribute (&attributes)[N]) const {
    return ZtWith(ZtWith(*this, &ZtElementType::fixed, attributes), &ZtElementType::fixedCount,
                  static_cast<std::uint8_t>(N));
  }
  constexpr ZtElementType Chooses(const ZtChoice* table) const {
    return ZtWith(*this, &ZtElementType::choices, table);
  }
  constexpr ZtElementType UnknownElement(const char* line) const {
    return ZtWith(*this, &ZtElementType::unknownElement, line);
  }
  constexpr ZtElementType RefusesUnknownChildren() const {
    return ZtWith(*this, &ZtElementType::unknownChild, ZtUnknown::kRefuse);
  }
  constexpr ZtElementType RefusesUnknownAttributes() const {
    return ZtWith(*this, &ZtElementType::unknownAttribute, ZtUnknown::kRefuse);
  }
  constexpr ZtElementType NamesStayInside() const {
    return ZtWith(*this, &ZtElementType::namesStayInside, true);
  }
  constexpr ZtElementType Root() const { return ZtWith(*this, &ZtElementType::root, true); }
  constexpr ZtElementType SelfClosing() const {
    return ZtWith(*this, &ZtElementType::selfClosing, true);
  }
  constexpr ZtElementType OnAttribute(ZtAttributeHook hook) const {
    return ZtWith(*this, &ZtElementType::attributeHook, hook);
  }
  constexpr ZtElementType OnChild(ZtChildHook hook) const {
    return ZtWith(*this, &ZtElementType::childHook, hook);
  }
  constexpr ZtElementType OnContent(ZtContentHook hook) const {
    return ZtWith(*this, &ZtElementType::contentHook, hook);
  }
  constexpr ZtElementType OnWrite(ZtWriteHook hook) const {
    return ZtWith(*this, &ZtElementType::writeHook, hook);
  }
  constexpr ZtElementType EntryLine(const char* line) const {
    return ZtWith(*this, &ZtElementType::entryLine, line);
  }
  constexpr ZtElementType FailsAs(const char* marshaller) const {
    return ZtWith(*this, &ZtElementType::failedAs, marshaller);
  }
  constexpr ZtElementType ChecksFirst() const {
    return ZtWith(*this, &ZtElementType::checksFirst, true);
  }
  constexpr ZtElementType StaysOpen() const {
    return ZtWith(*this, &ZtElementType::staysOpen, true);
  }
  constexpr ZtElementType AwaitsExtras() const {
    return ZtWith(*this, &ZtElementType::awaitsExtras, true);
  }

  const ZtField* begin() const { return fields; }
  const ZtField* children() const { return fields + attributeCount; }  // and own texts
  const ZtField* end() const { return fields + fieldCount; }
};

// Whether `className`, which may be null, is that of `type`. The library's own names are mostly
// told by where they lie.
inline bool ZtIsClass(const char* className, const ZtElementType& type) {
  return className == type.className || (className && __strcmp(className, type.className) == 0);
}

// The start of a type's table.
template <class T>
constexpr ZtElementType ZtTypeOf(const char* className, const char* label, const ZtFamily& family) {
  return ZtWith(ZtElementType{className, label, &family, ZtMaker<XMLElement>::Of<T>()},
                &ZtElementType::namesStayInside, family.namesStayInside);
}

// A zt_empty_element_type as a document writes it: self-closing, under the name that is its value.
constexpr ZtElementType ZtFlagOf(const ZtFamily& family, const char* writer, const ZtFlag& flag,
                                 e_XmlStrRef prefix = XML_STR_ZT_NULL) {
  return ZtWith(ZtTypeOf<zt_empty_element_type>("zt_empty_element_type", "empty_element", family)
                    .Writer(XML_STR_ZT_NULL, writer, prefix),
                &ZtElementType::flag, &flag);
}

// New, whole values, recorded under `source`; null without memory.
zt_string* ZtMakeString(const ZtSource& source, ZtPiece text);
zt_empty_element_type* ZtMakeFlag(const ZtSource& source, ZtPiece name);
zt_AttributeValuePair* ZtMakePair(const ZtSource& source, ZtPiece name, ZtPiece value);

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
ZtOutcome ZtOfferChild(XMLElement& self, const ZtElementType& type, const ZtChildName& name,
                       ZtPiece value, XMLElement* child, ZtArena* arena = nullptr);
ZtOutcome ZtOfferAttribute(XMLElement& self, const ZtElementType& type, ZtPiece name,
                           const char* value, XMLAttribute* attribute, ZtArena* arena = nullptr);
// Keeps the value of a scalar field.
ZtOutcome ZtStore(XMLElement& self, const ZtField& field, ZtPiece value, const ZtArena* arena);
// Keeps the text of a text row, whatever its place.
ZtOutcome ZtStoreText(XMLElement& self, const ZtField& field, ZtPiece value,
                      const ZtSource& source);
// Takes a child of the class that a row of objects has, at its start.
ZtOutcome ZtAdopt(XMLElement& self, const ZtField& field, XMLElement* child,
                  const ZtSource& source);
// The row of the attribute or of the child element `name`, or null.
const ZtField* ZtFindAttribute(const ZtElementType& type, ZtNameId name);
const ZtField* ZtFindChild(const ZtElementType& type, ZtNameId name);
// The choice that the type has for the child element `name`, or null; and in a table that ends with
// none, the choice that names it.
const ZtChoice* ZtFindChoice(const ZtElementType& type, ZtNameId name);
const ZtChoice* ZtFindNamed(const ZtChoice* choices, ZtNameId name);

// ---- Writing ------------------------------------------------------------------------------------

constexpr std::size_t kZtNumberSize = 24;   // room for any number in decimal, with its NUL
constexpr unsigned kZtNotSet = 0xFFFFFFFF;  // an attribute of 32 bits that is not written

// The text of a scalar field, null when it is absent: a null text, a 0, kZtNotSet in an attribute,
// an index beyond the values.
// Numbers are formatted in `buffer`.
ZtPiece ZtFieldText(const XMLElement& self, const ZtField& field, char* buffer);

#endif  // ZTXML_SRC_BINDING_ZTBINDING_H
