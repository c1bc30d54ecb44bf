// The model of a schema: types, and rows that say which attributes, texts and children a type has
// and where it keeps them. One reader and one writer do all types by these.
#ifndef ZTXML_SRC_BINDING_ZTMODEL_H
#define ZTXML_SRC_BINDING_ZTMODEL_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <type_traits>

#include "base/ZtLog.h"
#include "base/ZtMemory.h"
#include "binding/ZtAt.h"
#include "binding/ZtEnums.h"
#include "binding/ZtNames.h"
#include "binding/ZtSpaces.h"
#include "binding/ZtTelling.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/ZtElement.h"
#include "ztxml/ZtMembers.h"
#include "ztxml/ZtPiece.h"

// ---- Rows ---------------------------------------------------------------------------------------

enum class ZtPlace : std::uint8_t {
  kAttribute,        // an attribute of the element
  kTextElement,      // a child element of which the text is kept
  kTextElements,     // a repeated one; the texts are kept as zt_string
  kOwnText,          // the element's own text
  kOwnWords,         // its own text, split at its blanks; the words are kept as zt_string
  kChild,            // a child element that occurs at most once
  kChildren,         // a repeated child element
  kOtherChild,       // one child element out of a choice
  kOtherChildren,    // child elements that no row names
  kOtherAttributes,  // attributes that no row names
};

enum class ZtValue : std::uint8_t { kObject, kText, kNumber, kNumber64, kEnum };

// When the object of a child arrives at its parent.
enum class ZtArrival : std::uint8_t {
  kAtStart,  // at the start tag: its attributes and children follow
  kAtEnd,    // at the end tag, together with its text
  kAsText,   // never: its text arrives at the end tag, and the parent makes the object
};

enum ZtRowFlag : std::uint8_t {
  kZtRequired = 1,  // the element cannot be written without it
  kZtAlways = 2,    // written also when absent; null texts of a list are kept as empty ones
  kZtLenient = 4,   // a child that cannot be written does not fail its parent
  kZtOneOf = 8,     // of the rows with this mark only the first that is set is written
  kZtLogged = 16,   // the writer of this text element logs its name, "Add<Name>ElementToXml"
  // Of the standard profile alone.
  kZtFreeText = 32,  // white space at its ends is part of the text
  kZtMust = 64,      // its schema requires it
  kZtPaired = 128,   // the texts of this row and of the next one alternate
};

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

// What a row knows beyond its kind: nothing, or what its place and value ask for.
union ZtDetail {
  const ZtRange* range;       // numbers; null for all
  const ZtEnumTable* values;  // enumerations
  const ZtElementType* type;  // kChild, kChildren
  const ZtChoice* choices;    // kOtherChild, kOtherChildren: those that are known, null for none

  constexpr ZtDetail() : range(nullptr) {}
  constexpr explicit ZtDetail(const ZtRange* r) : range(r) {}
  constexpr explicit ZtDetail(const ZtEnumTable* v) : values(v) {}
  constexpr explicit ZtDetail(const ZtElementType* t) : type(t) {}
  constexpr explicit ZtDetail(const ZtChoice* c) : choices(c) {}
};

// One row. The order of a type's rows is the order of output, attributes before children.
struct ZtField {
  static constexpr std::uint8_t kNoDefault = 63;

  ZtDetail detail;
  ZtNameId name = XML_STR_ZT_NULL;
  std::uint16_t offset;  // of the member in an object of the row's type
  ZtPlace place;
  ZtValue value;
  std::uint8_t flags = 0;
  ZtArrival arrival : 2;
  std::uint8_t standsFor : 6;  // the value that its absence means in the standard profile

  template <class M>
  constexpr ZtField(ZtPlace p, ZtValue v, ZtNameId n, ZtAt<M> at, ZtDetail d = ZtDetail())
      : detail(d),
        name(n),
        offset(at.offset),
        place(p),
        value(v),
        arrival(ZtArrival::kAtStart),
        standsFor(kNoDefault) {}

  // The member in `object`, which is of the row's type. A number may be the index of an
  // enumeration.
  template <class Object>
  auto& Text(Object& object) const {
    return In<ZtText>(object);
  }
  template <class Object>
  auto& Number(Object& object) const {
    return In<ZtNumber>(object);
  }
  template <class Object>
  auto& Number64(Object& object) const {
    return In<ZtNumber64>(object);
  }
  template <class Object>
  auto& Child(Object& object) const {
    return In<ZtChild>(object);
  }
  template <class Object>
  auto& Children(Object& object) const {
    return In<ZtChildList>(object);
  }
  template <class Object>
  auto& Attributes(Object& object) const {
    return In<ZtAttributeList>(object);
  }

  constexpr bool Is(ZtRowFlag flag) const { return (flags & flag) != 0; }
  constexpr ZtField With(ZtRowFlag flag) const {
    return ZtWith(*this, &ZtField::flags, static_cast<std::uint8_t>(flags | flag));
  }
  constexpr ZtField Always() const { return With(kZtAlways); }
  constexpr ZtField Lenient() const { return With(kZtLenient); }
  constexpr ZtField OneOf() const { return With(kZtOneOf); }
  constexpr ZtField Logged() const { return With(kZtLogged); }
  constexpr ZtField FreeText() const { return With(kZtFreeText); }
  constexpr ZtField Must() const { return With(kZtMust); }
  constexpr ZtField Paired() const { return With(kZtPaired); }
  constexpr ZtField Required() const { return With(kZtRequired); }
  constexpr ZtField Arrives(ZtArrival when) const {
    ZtField row = *this;
    row.arrival = when;
    return row;
  }
  // By its schema the value is `index` where it is absent.
  constexpr ZtField Default(std::uint8_t index) const {
    ZtField row = *this;
    row.standsFor = index & kNoDefault;
    return row;
  }
  constexpr bool HasDefault() const { return standsFor != kNoDefault; }

  constexpr bool IsAttribute() const {
    return place == ZtPlace::kAttribute || place == ZtPlace::kOtherAttributes;
  }
  constexpr bool IsOwnText() const {
    return place == ZtPlace::kOwnText || place == ZtPlace::kOwnWords;
  }
  // Whether it is of a child element that has an object, made at its start.
  constexpr bool IsObject() const {
    return (place == ZtPlace::kChild || place == ZtPlace::kChildren) &&
           arrival == ZtArrival::kAtStart;
  }
  // Whether nothing but a text, kept at its end, is to be had of the child element.
  constexpr bool IsText() const {
    return place == ZtPlace::kTextElement || place == ZtPlace::kTextElements;
  }
  // Whether the element may occur again and again.
  constexpr bool Repeats() const {
    return place == ZtPlace::kChildren || place == ZtPlace::kTextElements;
  }
  constexpr bool HasName() const { return place < ZtPlace::kOtherChild; }

 private:
  template <class M, class Object>
  auto& In(Object& object) const {
    using Byte = std::conditional_t<std::is_const_v<Object>, const char, char>;
    using Member = std::conditional_t<std::is_const_v<Object>, const M, M>;
    return *reinterpret_cast<Member*>(reinterpret_cast<Byte*>(&object) + offset);
  }
};
static_assert(sizeof(void*) != 8 || sizeof(ZtField) == 16);

// Builders of rows, by the kind of the member. They are qualified because the types' members hide
// short names.
namespace ztrow {

// What a scalar member holds; with a table of values the index of one.
template <class M>
constexpr ZtValue ValueOf() {
  if (std::is_base_of_v<ZtText, M>) return ZtValue::kText;
  return std::is_base_of_v<ZtNumber64, M> ? ZtValue::kNumber64 : ZtValue::kNumber;
}

template <class M>
constexpr ZtField Scalar(ZtPlace place, ZtNameId name, ZtAt<M> at) {
  return {place, ValueOf<M>(), name, at};
}
template <class M>
constexpr ZtField Scalar(ZtPlace place, ZtNameId name, ZtAt<M> at, const ZtEnumTable& values) {
  static_assert(std::is_base_of_v<ZtNumber, M>);
  return {place, ZtValue::kEnum, name, at, ZtDetail(&values)};
}
template <class Value, std::size_t N>
constexpr ZtField Scalar(ZtPlace place, ZtNameId name, ZtAt<ZtNumberMember<Value>> at,
                         const ZtEnumOf<N>& values) {
  static_assert(static_cast<std::size_t>(Value::kAbsent) == N, "a value without a word");
  return {place, ZtValue::kEnum, name, at, ZtDetail(&values)};
}
template <class M>
constexpr ZtField Scalar(ZtPlace place, ZtNameId name, ZtAt<M> at, const ZtRange& range) {
  static_assert(std::is_base_of_v<ZtNumber, M>);
  return {place, ZtValue::kNumber, name, at, ZtDetail(&range)};
}
// `detail`: the ZtEnumTable of an enumeration, the ZtRange of a number.
template <class M, class... Detail>
constexpr ZtField Attribute(ZtNameId name, ZtAt<M> at, const Detail&... detail) {
  return Scalar(ZtPlace::kAttribute, name, at, detail...);
}
template <class M, class... Detail>
constexpr ZtField TextElement(ZtNameId name, ZtAt<M> at, const Detail&... detail) {
  return Scalar(ZtPlace::kTextElement, name, at, detail...);
}
// The element's own text; `name` is the element's.
template <class M, class... Detail>
constexpr ZtField OwnText(ZtNameId name, ZtAt<M> at, const Detail&... detail) {
  return Scalar(ZtPlace::kOwnText, name, at, detail...);
}
// A number in a range, which is always written.
template <class M>
constexpr ZtField OwnText(ZtNameId name, ZtAt<M> at, const ZtRange& range) {
  return Scalar(ZtPlace::kOwnText, name, at, range).Always();
}
// A repeated text element; the list holds zt_string.
constexpr ZtField TextElements(ZtNameId name, ZtAt<ZtChildList> at) {
  return {ZtPlace::kTextElements, ZtValue::kText, name, at};
}
// The element's own text as words, one blank between them: n blanks make n + 1 words, of which any
// may be empty.
constexpr ZtField OwnWords(ZtNameId name, ZtAt<ZtChildList> at) {
  return {ZtPlace::kOwnWords, ZtValue::kText, name, at};
}
// `type`: a table of its own for what the member holds.
constexpr ZtField Child(ZtNameId name, ZtAt<ZtChild> at, const ZtElementType& type) {
  return {ZtPlace::kChild, ZtValue::kObject, name, at, ZtDetail(&type)};
}
constexpr ZtField Children(ZtNameId name, ZtAt<ZtChildList> at, const ZtElementType& type) {
  return {ZtPlace::kChildren, ZtValue::kObject, name, at, ZtDetail(&type)};
}
// Of the type that the member has.
template <class M>
constexpr ZtField Child(ZtNameId name, ZtAt<M> at) {
  return Child(name, at, M::Entry::kType);
}
template <class M>
constexpr ZtField Children(ZtNameId name, ZtAt<M> at) {
  return Children(name, at, M::Entry::kType);
}
// One element out of `choices`: the last one stands. Others are not written.
constexpr ZtField OtherChild(ZtAt<ZtChild> at, const ZtChoice* choices) {
  return {ZtPlace::kOtherChild, ZtValue::kObject, XML_STR_ZT_NULL, at, ZtDetail(choices)};
}
// Elements that no row names are kept, and written when their class is among `choices`.
constexpr ZtField OtherChildren(ZtAt<ZtChildList> at, const ZtChoice* choices = nullptr) {
  return {ZtPlace::kOtherChildren, ZtValue::kObject, XML_STR_ZT_NULL, at, ZtDetail(choices)};
}
// Kept, and written back in the order received.
constexpr ZtField OtherAttributes(ZtAt<ZtAttributeList> at) {
  return {ZtPlace::kOtherAttributes, ZtValue::kObject, XML_STR_ZT_NULL, at};
}

// Whether rows can be meant: attributes before children, no name twice in one place, at most one
// row for the rest; nothing required but texts and numbers, no own text as one of several.
constexpr bool Sound(std::initializer_list<ZtField> rows) {
  bool children = false;
  for (const ZtField* row = rows.begin(); row != rows.end(); ++row) {
    if (row->IsAttribute() && children) return false;
    children = children || !row->IsAttribute();
    if (row->Is(kZtRequired) && (row->value == ZtValue::kObject || row->IsOwnText())) return false;
    if (row->Is(kZtOneOf) && row->IsOwnText()) return false;
    for (const ZtField* other = rows.begin(); other != row; ++other) {
      if (row->IsAttribute() == other->IsAttribute() && row->name == other->name &&
          row->HasName() == other->HasName()) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace ztrow

// The rows of what ZtExtensible<Base> and ZtKeepsElements<Base> keep.
struct ZtExtensibleRows {
  template <class Base>
  static constexpr ZtField kAttributes = ztrow::OtherAttributes(ZT_AT(ZtExtensible<Base>,
                                                                      m_AnyAttributes));
  template <class Base>
  static constexpr ZtField kElements = ztrow::OtherChildren(ZT_AT(ZtKeepsElements<Base>,
                                                                  m_AnyElements));
  // Elements that are kept, of which those among `choices` are written.
  template <class Base>
  static constexpr ZtField Elements(const ZtChoice* choices) {
    return ztrow::OtherChildren(ZT_AT(ZtKeepsElements<Base>, m_AnyElements), choices);
  }
};

inline constexpr ZtField kZtExtras = ZtExtensibleRows::kAttributes<ZtElement>;
inline constexpr ZtField kZtOthers = ZtExtensibleRows::kElements<ZtElement>;

// ---- Types --------------------------------------------------------------------------------------

// What a type does with a child or attribute that no row names and no list keeps.
enum class ZtUnknown : std::uint8_t { kIgnore, kRefuse };

// How a start tag ends.
enum class ZtStartTag : std::uint8_t {
  kCloses,
  kEmpty,         // "/>": the element has no content
  kStaysOpen,     // only an attribute closes it
  kAwaitsExtras,  // a list of other attributes that is empty leaves it open
};

// The log lines of what is offered to an object; null for none. The first %s is the class name.
struct ZtHookLines {
  const char* nullElement;
  const char* nullAttribute;
  const char* noObject;
  const char* noClass;
  const char* wrongClass;        // class name, class received, class expected
  const char* unknownAttribute;  // class name, attribute
};

// What the writer logs of a row instead of, or besides, what it logs of others: of a text element
// that logs its name and of what is required when the value is absent (the first %s is the class
// name, the second the row's), of a child when it fails (%d is its index), of an element of a mixed
// list that is not written (%s is its class name).
struct ZtNote {
  const char* label;  // the type's; null for all
  ZtNameId row;
  int level;
  const char* line;  // null: nothing is logged
};

// What several types of a document have in common: mostly all of them.
struct ZtFamily {
  const char* source;  // file under which they log and are recorded
  const ZtHookLines* lines;
  const char* unknownElement;  // name, value; for children without an object
  const char* childFailed;     // the failing child's writer
  // File under which the objects of these types, and all that is made inside one, are recorded
  // when a document is read; null for the decoder's.
  const char* recordedUnder = nullptr;
  // What a writer logs on entry, with its name.
  const char* entryLine = "<XML Module>: %s";
  const ZtNote* notes = nullptr;
  std::uint8_t noteCount = 0;
  std::uint8_t entryLevel = kZtLogTrace;
  // Whether the names of its types' children make objects only inside these types.
  bool namesStayInside = false;
  ZtUnknown unknownAttribute = ZtUnknown::kIgnore;
  // What becomes of a child that has no class name, under a name that asks for one.
  ZtUnknown nullClass = ZtUnknown::kIgnore;

  constexpr ZtFamily NamesStayInside() const {
    return ZtWith(*this, &ZtFamily::namesStayInside, true);
  }
  constexpr ZtFamily RefusesNullClasses() const {
    return ZtWith(*this, &ZtFamily::nullClass, ZtUnknown::kRefuse);
  }
  constexpr ZtFamily Enters(const char* line, int level) const {
    return ZtWith(ZtWith(*this, &ZtFamily::entryLine, line), &ZtFamily::entryLevel,
                  static_cast<std::uint8_t>(level));
  }
  constexpr ZtFamily UnknownElement(const char* line) const {
    return ZtWith(*this, &ZtFamily::unknownElement, line);
  }
  template <std::size_t N>
  constexpr ZtFamily Notes(const ZtNote (&own)[N]) const {
    return ZtWith(ZtWith(*this, &ZtFamily::notes, own), &ZtFamily::noteCount, std::uint8_t{N});
  }
  constexpr ZtFamily RefusesUnknownAttributes() const {
    return ZtWith(*this, &ZtFamily::unknownAttribute, ZtUnknown::kRefuse);
  }
};

// What most documents say of an unknown element.
inline constexpr char kCannotAccommodate[] = "Cannot accommodate the element %s with value %s";

// The family of types that log nothing of their own and ignore what they do not know.
inline constexpr ZtHookLines kZtNoHookLines = {};
constexpr ZtFamily ZtQuietFamily(const char* source, const char* recordedUnder = nullptr) {
  return {source, &kZtNoHookLines, nullptr, nullptr, recordedUnder};
}

// The family of most documents.
constexpr ZtFamily ZtPlainFamily(const char* source) {
  return {source, &kZtNoHookLines, kCannotAccommodate, "<XML Module>: %s XML Failed!"};
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
  kNotHere,   // it is not for this row
};

// How an element whose presence is the value is written. In its lines %s is the marshaller.
struct ZtFlag {
  const char* absentLine;
  const char* nullLine = nullptr;
  // Bytes of its name that are written. 0 for one that is written as it stands, and is nothing when
  // the flag has none; the others cannot be written without a name.
  std::size_t mostName = 0;
};

class ZtElementWriter;

// What few types have. The functions are for what rows cannot say: the last resort.
struct ZtExtras {
  // Attributes that its start tag carries where it has its own name.
  std::initializer_list<ZtFixedAttribute> declares = {};
  // Asked before the rows; false leaves the matter to them.
  bool (*child)(XMLElement& self, const char* name, const char* value, XMLElement* child,
                ZtOutcome& outcome) = nullptr;
  // Writes what stands between the start and the end tag; false fails the element, which then has
  // no end tag.
  bool (*content)(ZtElementWriter& writer, const XMLElement& self,
                  const ZtElementType& type) = nullptr;
  // Writes all of the element.
  bool (*write)(ZtElementWriter& writer, const XMLElement& self,
                const ZtElementType& type) = nullptr;
  const ZtFlag* flag = nullptr;  // the presence of the element is its value
  // The type as the standard profile has it, where its rows are others or in another order.
  const ZtElementType* standard = nullptr;
  const ZtTelling* telling = nullptr;

  constexpr ZtExtras Tells(const ZtTelling& how) const {
    ZtExtras extras = *this;
    extras.telling = &how;
    return extras;
  }
};
inline constexpr ZtExtras kZtNoExtras = {};
constexpr ZtExtras ZtExtrasOf(const ZtFlag& flag) { return {{}, nullptr, nullptr, nullptr, &flag}; }
constexpr ZtExtras ZtExtrasOf(const ZtElementType& standard) {
  return {{}, nullptr, nullptr, nullptr, nullptr, &standard};
}

// What there is to say of a type besides its rows.
struct ZtTypeFacts {
  const char* className;
  const char* label;
  const ZtFamily* family;
  XMLElement* (*construct)(void*);
  const char* writer = nullptr;  // the name its writer logs; null logs nothing
  const ZtExtras* extras = &kZtNoExtras;
  std::uint16_t size = 0;  // of an object
  // Unless its parent's row names it; without either only its content is written.
  ZtNameId tag = XML_STR_ZT_NULL;
  ZtNameId prefix = XML_STR_ZT_NULL;  // written with it and all that is in it
  ZtStartTag start = ZtStartTag::kCloses;
  ZtUnknown unknownChild = ZtUnknown::kIgnore;
  ZtUnknown unknownAttribute = ZtUnknown::kIgnore;
  // The names of its children make objects only inside it. Other types' do so anywhere in the
  // document: whoever does not know them decides what becomes of the objects.
  bool namesStayInside = false;
  bool root = false;
  bool checksFirst = false;         // without a required attribute nothing of it is written
  bool attributesAsTexts = false;   // its attributes come as texts under their plain names
  std::uint8_t space = kZtNoSpace;  // of its children, where that is not the element's own

  constexpr ZtTypeFacts Writer(ZtNameId element, const char* name,
                               ZtNameId withPrefix = XML_STR_ZT_NULL) const {
    return ZtWith(ZtWith(ZtWith(*this, &ZtTypeFacts::tag, element), &ZtTypeFacts::writer, name),
                  &ZtTypeFacts::prefix, withPrefix);
  }
  constexpr ZtTypeFacts Starts(ZtStartTag how) const {
    return ZtWith(*this, &ZtTypeFacts::start, how);
  }
  constexpr ZtTypeFacts RefusesUnknownChildren() const {
    return ZtWith(*this, &ZtTypeFacts::unknownChild, ZtUnknown::kRefuse);
  }
  constexpr ZtTypeFacts RefusesUnknownAttributes() const {
    return ZtWith(*this, &ZtTypeFacts::unknownAttribute, ZtUnknown::kRefuse);
  }
  constexpr ZtTypeFacts NamesStayInside() const {
    return ZtWith(*this, &ZtTypeFacts::namesStayInside, true);
  }
  constexpr ZtTypeFacts Root() const { return ZtWith(*this, &ZtTypeFacts::root, true); }
  constexpr ZtTypeFacts ChecksFirst() const {
    return ZtWith(*this, &ZtTypeFacts::checksFirst, true);
  }
  constexpr ZtTypeFacts AttributesAsTexts() const {
    return ZtWith(*this, &ZtTypeFacts::attributesAsTexts, true);
  }
  constexpr ZtTypeFacts Holds(ZtKnownSpace others) const {
    return ZtWith(*this, &ZtTypeFacts::space, static_cast<std::uint8_t>(others));
  }
  constexpr ZtTypeFacts With(const ZtExtras& own) const {
    return ZtWith(*this, &ZtTypeFacts::extras, &own);
  }
};

// What is asked of all rows of a type, gathered once.
struct ZtRowFacts {
  ZtNameFilter names = {};
  std::uint8_t attributes = 0;  // how many: the rows begin with them
  std::uint8_t others = 0;      // where the row for other children is, from 1; 0 for none
  bool keepsAttributes = false;
  bool takesText = false;
  bool hasDefaults = false;

  constexpr ZtRowFacts(
      std::initializer_list<ZtField> rows) {  // NOLINT(google-explicit-constructor)
    for (const ZtField& row : rows) {
      names.Add(row.name);
      if (row.IsAttribute()) ++attributes;
      if (!row.HasName() && !row.IsAttribute()) {
        others = static_cast<std::uint8_t>(&row - rows.begin() + 1);
      }
      keepsAttributes = keepsAttributes || row.place == ZtPlace::kOtherAttributes;
      takesText = takesText || row.IsOwnText();
      hasDefaults = hasDefaults || row.HasDefault();
    }
  }
};

// A type: what there is to say of it, and its rows.
struct ZtElementType : ZtTypeFacts {
  std::initializer_list<ZtField> fields = {};
  ZtRowFacts rows = fields;

  const ZtField* begin() const { return fields.begin(); }
  const ZtField* children() const { return fields.begin() + rows.attributes; }  // and own texts
  const ZtField* end() const { return fields.end(); }
  // The elements in it that are no rows'; null for none.
  const ZtChoice* Choices() const {
    return rows.others ? fields.begin()[rows.others - 1].detail.choices : nullptr;
  }
  // A new object, recorded; null without memory.
  XMLElement* Create(const ZtSource& source, int line = __builtin_LINE()) const {
    return ZtMaker<XMLElement>{construct, size}.Create(source, line);
  }
  // Likewise, without a record.
  XMLElement* Make(ZtArena* arena) const {
    return ZtMaker<XMLElement>{construct, size}.Make(arena);
  }
};

static_assert(sizeof(void*) != 8 || sizeof(ZtElementType) <= 96);

// Whether `className`, which may be null, is that of `type`. The library's own names are mostly
// told by where they lie.
inline bool ZtIsClass(const char* className, const ZtElementType& type) {
  return className == type.className || (className && __strcmp(className, type.className) == 0);
}

// Whether two tables say one thing of one type: a program may have copies of the tables that it
// names.
inline bool ZtIsOneType(const ZtElementType& one, const ZtElementType& other) {
  return &one == &other ||
         (one.className == other.className && one.fields.begin() == other.fields.begin());
}

// The start of what there is to say of the type `T`.
template <class T>
constexpr ZtTypeFacts ZtTypeOf(const char* className, const char* label, const ZtFamily& family) {
  constexpr ZtMaker<XMLElement> kMaker = ZtMaker<XMLElement>::Of<T>();
  static_assert(kMaker.size <= UINT16_MAX);
  ZtTypeFacts facts = {className, label, &family, kMaker.construct};
  facts.size = static_cast<std::uint16_t>(kMaker.size);
  facts.unknownAttribute = family.unknownAttribute;
  facts.namesStayInside = family.namesStayInside;
  return facts;
}

// A zt_empty_element_type as a document writes it: an empty tag, under the name that is its value.
// `extras` says how.
constexpr ZtElementType ZtFlagOf(const ZtFamily& family, const char* writer, const ZtExtras& extras,
                                 ZtNameId prefix = XML_STR_ZT_NULL) {
  return {ZtTypeOf<zt_empty_element_type>("zt_empty_element_type", "empty_element", family)
              .Writer(XML_STR_ZT_NULL, writer, prefix)
              .With(extras)};
}

// New, whole values, recorded under `source`; null without memory.
zt_string* ZtMakeString(const ZtSource& source, ZtPiece text);
zt_empty_element_type* ZtMakeFlag(const ZtSource& source, ZtPiece name);
// `space` is the URI of its namespace, which outlives it.
zt_AttributeValuePair* ZtMakePair(const ZtSource& source, ZtPiece name, ZtPiece value,
                                  ZtPiece space = nullptr);

#endif  // ZTXML_SRC_BINDING_ZTMODEL_H
