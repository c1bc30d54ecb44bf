#include "binding/ZtBinding.h"

#include <cstring>
#include <limits>
#include <type_traits>

#include "base/ZtDigits.h"
#include "base/ZtLog.h"
#include "model/ZtOwnership.h"

namespace {

inline unsigned DigitOf(char c) {
  return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0';
}

// A decimal number as documents carry it: leading blanks, a sign, digits. Intended: no text is
// refused as a number: too large a one is the largest that fits, a negative or missing one is 0,
// and what follows the digits is not looked at; callers get a number in every case.
template <class Number>
Number ParseNumber(ZtPiece value) {
  const char* text = value.text;
  if (DigitOf(*text) > 9) {
    while (*text == ' ' || (*text >= '\t' && *text <= '\r')) ++text;
    if (*text == '-') return 0;
    if (*text == '+') ++text;
  }
  using Limits = std::numeric_limits<Number>;
  Number number = 0;
  unsigned digit = 0;
  if (value.size <= Limits::digits10) {  // none is too large then
    for (; (digit = DigitOf(*text)) <= 9; ++text) number = number * 10 + digit;
    return number;
  }
  constexpr Number kMost = Limits::max();
  for (; (digit = DigitOf(*text)) <= 9; ++text) {
    if (number >= kMost / 10 && (number > kMost / 10 || digit > kMost % 10)) return kMost;
    number = number * 10 + digit;
  }
  return number;
}

}  // namespace

ZtOutcome ZtStore(XMLElement& self, const ZtField& field, ZtPiece value, const ZtArena* arena) {
  if (!value.text) return ZtOutcome::kAccepted;
  switch (field.value) {
    case ZtValue::kText: {
      ZtText& text = field.Text(self);
      if (!arena || !arena->Holds(value.text)) {
        return text.Set(value) ? ZtOutcome::kAccepted : ZtOutcome::kNoMemory;
      }
      text.Refer(value);
      break;
    }
    case ZtValue::kNumber: {
      const auto number = ParseNumber<unsigned>(value);
      const ZtRange* range = field.detail.range;
      if (!range || (number >= range->least && number <= range->most)) {
        field.Number(self).Set(number);
      }
      break;
    }
    case ZtValue::kNumber64:
      field.Number64(self).Set(ParseNumber<unsigned long long>(value));
      break;
    case ZtValue::kEnum: {
      const unsigned index = field.detail.values->Find(value);
      if (index != kZtKeepsValue) field.Number(self).Set(index);
      break;
    }
    case ZtValue::kObject:
      break;
  }
  return ZtOutcome::kAccepted;
}

namespace {

// Only a lack of memory keeps a list from taking what has no owner.
template <class Item>
ZtOutcome AppendItem(ZtOwnedList<Item>& list, Item& item, const ZtSource& source) {
  if (list.Add(&item, source.file, source.arena)) return ZtOutcome::kAdopted;
  return ZtOwnership::IsOwned(item) ? ZtOutcome::kRefused : ZtOutcome::kNoMemory;
}

ZtOutcome AppendText(XMLElement& self, const ZtField& field, const ZtSource& source,
                     ZtPiece value) {
  zt_string* text = ZtMakeString(source, value);
  if (field.Children(self).Add(text, source.file, source.arena)) {
    return ZtOutcome::kAccepted;
  }
  ZtRelease(text);
  return ZtOutcome::kNoMemory;
}

// The words are cut out of the text where it is the document's own, else out of a copy.
ZtOutcome AppendWords(XMLElement& self, const ZtField& field, const ZtSource& source,
                      ZtPiece value) {
  const bool inPlace = source.arena && source.arena->Holds(value.text);
  char* words = inPlace ? const_cast<char*>(value.text) : __strdup(value.text);
  if (!words) return ZtOutcome::kNoMemory;
  const char* const end = words + __strlen(words);
  ZtOutcome outcome = ZtOutcome::kAccepted;
  for (char* word = words; word && outcome == ZtOutcome::kAccepted;) {
    const auto rest = static_cast<std::size_t>(end - word);
    auto* const blank = static_cast<char*>(std::memchr(word, ' ', rest));
    if (blank) *blank = '\0';
    outcome = AppendText(self, field, source,
                         {word, blank ? static_cast<std::size_t>(blank - word) : rest});
    word = blank ? blank + 1 : nullptr;
  }
  if (!inPlace) __free(words);
  return outcome;
}

// Keeps the text of a text row, whatever its place.
ZtOutcome StoreText(XMLElement& self, const ZtField& field, ZtPiece value, const ZtSource& source) {
  if (!value.text && field.place == ZtPlace::kTextElements && field.Is(kZtAlways)) value = {"", 0};
  if (!value.text) return ZtOutcome::kAccepted;
  switch (field.place) {
    case ZtPlace::kTextElements:
      return AppendText(self, field, source, value);
    case ZtPlace::kOwnWords:
      return AppendWords(self, field, source, value);
    default:
      return ZtStore(self, field, value, source.arena);
  }
}

// The text that came with the end tag of a child which was made there. False without memory.
bool StoreOwnText(XMLElement& child, const ZtElementType& type, ZtPiece value, ZtArena* arena) {
  for (const ZtField& own : type) {
    if (own.IsOwnText() &&
        StoreText(child, own, value, {type.family->source, arena}) == ZtOutcome::kNoMemory) {
      return false;
    }
  }
  return true;
}

class Hook {
 public:
  Hook(const ZtElementType& type, ZtArena* arena)
      : m_Type(type), m_Lines(*type.family->lines), m_Source(type.family->source, arena) {}

  const ZtHookLines& Lines() const { return m_Lines; }

  void Log(const char* format, const char* a = nullptr, const char* b = nullptr,
           int line = __builtin_LINE()) const {
    if (format) ZtLog(kZtLogTrace, m_Type.family->source, line)(format, m_Type.className, a, b);
  }

  // Takes a child, at its end with the text that came with it.
  ZtOutcome Adopt(XMLElement& self, const ZtField& field, XMLElement* child,
                  ZtPiece ownText) const {
    if (!child) {
      Log(m_Lines.noObject);
      return ZtOutcome::kRefused;
    }
    const char* className = child->ClassName();
    if (!className) {
      Log(m_Lines.noClass);
      return m_Type.family->nullClass == ZtUnknown::kRefuse ? ZtOutcome::kRefused
                                                            : ZtOutcome::kAccepted;
    }
    if (!ZtIsA(*child, *field.detail.type)) {
      Log(m_Lines.wrongClass, className, field.detail.type->className);
      return ZtOutcome::kRefused;
    }
    if (field.arrival == ZtArrival::kAtEnd && !ZtOwnership::IsOwned(*child) &&
        !StoreOwnText(*child, *field.detail.type, ownText, m_Source.arena)) {
      return ZtOutcome::kNoMemory;
    }
    return ZtAdopt(self, field, child, m_Source);
  }

  // A child that no one else makes: at its end its text becomes its object.
  ZtOutcome MakeChild(XMLElement& self, const ZtField& field, ZtPiece value,
                      const XMLElement* offered) const {
    if (offered) return ZtOutcome::kRefused;
    if (!value.text) return ZtOutcome::kAccepted;
    XMLElement* child = field.detail.type->Create(m_Source);
    if (!child) return ZtOutcome::kNoMemory;
    if (StoreOwnText(*child, *field.detail.type, value, m_Source.arena)) {
      field.Child(self).Set(child);
      return ZtOutcome::kAccepted;
    }
    ZtRelease(child);
    return ZtOutcome::kNoMemory;
  }

  template <class List, class Item>
  ZtOutcome Append(List& list, Item* item) const {
    return AppendItem(list, *item, m_Source);
  }

  ZtOutcome UnknownChild(XMLElement& self, const char* name, const char* value,
                         XMLElement* child) const {
    const ZtField* others = m_Type.rows.others ? m_Type.begin() + m_Type.rows.others - 1 : nullptr;
    if (child && others && others->place == ZtPlace::kOtherChildren) {
      return Append(others->Children(self), child);
    }
    if (const char* format = m_Type.family->unknownElement)
      ZtLog(kZtLogTrace, m_Type.family->source)(format, name, value);
    return m_Type.unknownChild == ZtUnknown::kRefuse ? ZtOutcome::kRefused : ZtOutcome::kAccepted;
  }

 private:
  const ZtElementType& m_Type;
  const ZtHookLines& m_Lines;
  const ZtSource m_Source;
};

}  // namespace

ZtPiece ZtFormatNumber(unsigned long long number, char* buffer) {
  char* const end = ZtPutDigits64(buffer, number);
  *end = '\0';
  return {buffer, static_cast<std::size_t>(end - buffer)};
}

unsigned ZtEnumTable::Find(ZtPiece value) const {
  const char first = *value.text;
  for (unsigned i = 0; i < searched; ++i) {
    const ZtPiece slot = slots[i].Piece();
    if (*slot.text != first || (byPrefix ? slot.size > value.size : slot.size != value.size)) {
      continue;
    }
    if (ZtSameBytes(slot.text, value.text, slot.size)) return respelt ? i % count : i;
  }
  return noMatch;
}

ZtOutcome ZtOfferChild(XMLElement& self, const ZtElementType& type, const ZtChildName& name,
                       ZtPiece value, XMLElement* child, ZtArena* arena) {
  const Hook hook(type, arena);
  if (!name.text) {
    hook.Log(hook.Lines().nullElement);
    return ZtOutcome::kAccepted;
  }
  ZtOutcome hooked = ZtOutcome::kAccepted;
  const auto hookOfType = type.extras->child;
  if (hookOfType && hookOfType(self, name.text, value.text, child, hooked)) return hooked;
  if (type.attributesAsTexts) {
    // Only the plain name without an object is that text; all else is nobody's.
    if (const ZtField* row = ZtFindAttribute(type, name.id)) {
      return name.atEnd || child ? ZtOutcome::kAccepted : ZtStore(self, *row, value, arena);
    }
  }
  const ZtField* const end = type.rows.names.MayHave(name.id) ? type.end() : type.children();
  for (const ZtField* row = type.children(); row != end; ++row) {
    if (row->name != name.id || !row->HasName()) continue;
    const ZtOutcome outcome = ZtApplyRow(self, type, *row, name.atEnd, value, child, arena);
    if (outcome != ZtOutcome::kNotHere) return outcome;
  }
  return hook.UnknownChild(self, name.text, value.text, child);
}

ZtOutcome ZtApplyRow(XMLElement& self, const ZtElementType& type, const ZtField& row, bool atEnd,
                     ZtPiece value, XMLElement* child, ZtArena* arena) {
  if (row.IsText() || row.IsOwnText()) {
    if (!atEnd) return row.IsText() ? ZtOutcome::kAccepted : ZtOutcome::kNotHere;
    if (child) return ZtOutcome::kRefused;
    return StoreText(self, row, value, {type.family->source, arena});
  }
  const Hook hook(type, arena);
  if (row.arrival == ZtArrival::kAsText) {
    return atEnd ? hook.MakeChild(self, row, value, child) : ZtOutcome::kAccepted;
  }
  // A child that comes with its end tag is at its start like any that no row names.
  const bool arrives = atEnd == (row.arrival == ZtArrival::kAtEnd);
  return arrives ? hook.Adopt(self, row, child, value) : ZtOutcome::kNotHere;
}

ZtOutcome ZtAdopt(XMLElement& self, const ZtField& field, XMLElement* child,
                  const ZtSource& source) {
  if (field.place == ZtPlace::kChild || field.place == ZtPlace::kOtherChild) {
    const bool taken = field.Child(self).Take(child);
    return taken ? ZtOutcome::kAdopted : ZtOutcome::kRefused;
  }
  return AppendItem(field.Children(self), *child, source);
}

const ZtField* ZtFindAttribute(const ZtElementType& type, ZtNameId name) {
  if (!type.rows.names.MayHave(name)) return nullptr;
  for (const ZtField* field = type.begin(); field != type.children(); ++field) {
    if (field->name == name && field->place == ZtPlace::kAttribute) return field;
  }
  return nullptr;
}

const ZtField* ZtFindChild(const ZtElementType& type, ZtNameId name) {
  if (!type.rows.names.MayHave(name)) return nullptr;
  for (const ZtField* field = type.children(); field != type.end(); ++field) {
    if (field->name == name && field->HasName()) return field;
  }
  return nullptr;
}

const ZtField* ZtSearchChild(const ZtElementType& type, const ZtField*& next, ZtPaddedPiece name) {
  const auto find = [name](const ZtField* row, const ZtField* end) {
    while (row != end && !(row->name.Is(name) && row->HasName())) ++row;
    return row;
  };
  const ZtField* row = find(next, type.end());
  if (row == type.end()) {
    row = find(type.children(), next);
    if (row == next) return nullptr;
  }
  if (!row->IsText() && !row->IsObject()) return nullptr;
  next = row->Repeats() ? row : row + 1;
  return row;
}

const ZtChoice* ZtFindNamed(const ZtChoice* choices, ZtNameId name) {
  for (const ZtChoice* at = choices; at && at->type; ++at) {
    if (at->name == name) return at;
    for (const ZtNameId* other = at->others; other && !other->IsNone(); ++other) {
      if (*other == name) return at;
    }
  }
  return nullptr;
}

const ZtChoice* ZtFindChoice(const ZtElementType& type, ZtNameId name) {
  const ZtChoice* choices = type.Choices();
  if (!choices) return nullptr;
  const ZtChoice* named = ZtFindNamed(choices, name);
  return named || ZtFindChild(type, name) ? named : ZtFindNamed(choices, XML_STR_ZT_NULL);
}

ZtOutcome ZtOfferAttribute(XMLElement& self, const ZtElementType& type, ZtPiece name,
                           const char* value, XMLAttribute* attribute, ZtArena* arena) {
  const Hook hook(type, arena);
  if (!name.text) {
    hook.Log(hook.Lines().nullAttribute);
    return ZtOutcome::kAccepted;
  }
  const ZtField* field =
      type.attributesAsTexts ? nullptr : ZtFindAttribute(type, ZtNameId::Of(name));
  if (field) {
    return attribute ? ZtOutcome::kRefused : ZtStore(self, *field, value, arena);
  }
  for (const ZtField& row : type) {
    if (row.place != ZtPlace::kOtherAttributes || !attribute) continue;
    return hook.Append(row.Attributes(self), attribute);
  }
  hook.Log(hook.Lines().unknownAttribute, name.text);
  return type.unknownAttribute == ZtUnknown::kRefuse ? ZtOutcome::kRefused : ZtOutcome::kAccepted;
}

// Intended: most numbers are absent when they are 0, and those of attributes when they are
// 0xFFFFFFFF, too; they are then not written, so that callers cannot write these values.
ZtPiece ZtFieldText(const XMLElement& self, const ZtField& field, char* buffer) {
  switch (field.value) {
    case ZtValue::kText:
      return field.Text(self).Piece();
    case ZtValue::kNumber:
    case ZtValue::kNumber64: {
      const bool is32 = field.value == ZtValue::kNumber;
      const unsigned long long number =
          is32 ? field.Number(self).Get() : field.Number64(self).Get();
      const bool absent =
          number == 0 || (number == kZtNotSet && is32 && field.place == ZtPlace::kAttribute);
      return absent && !field.Is(kZtAlways) ? ZtPiece(nullptr) : ZtFormatNumber(number, buffer);
    }
    case ZtValue::kEnum: {
      const unsigned index = field.Number(self);
      return index < field.detail.values->count ? field.detail.values->slots[index].Piece()
                                                : nullptr;
    }
    case ZtValue::kObject:
      break;
  }
  return nullptr;
}

bool ZtIsA(const XMLElement& element, const ZtElementType& type) {
  return ZtIsClass(element.ClassName(), type);
}

// ---- The bases of the schema types --------------------------------------------------------------

template <class Base>
const char* ZtBound<Base>::ClassName() const {
  return Type().className;
}

template <class Base>
const char* ZtBound<Base>::BaseClassName() const {
  return std::is_same_v<Base, XMLObject> ? "XMLObject" : "XMLElement";
}

template <class Base>
const char* ZtBound<Base>::ElementName() const {
  return Type().label;
}

template <class Base>
int ZtBound<Base>::ReservedHook() {
  return 0;
}

template <class Base>
int ZtBound<Base>::ProcessUnMarshall(char* name, char* value, XMLElement* child) {
  return ZtHookResult(ZtOfferChild(*this, Type(), name, value, child));
}

template <class Base>
int ZtBound<Base>::ProcessUnMarshallAttribute(char* name, char* value, XMLAttribute* attribute) {
  return ZtHookResult(ZtOfferAttribute(*this, Type(), name, value, attribute));
}

template class ZtBound<XMLElement>;
template class ZtBound<XMLObject>;

int ZtObject::IsRootElement() const { return Type().root ? 1 : 0; }
