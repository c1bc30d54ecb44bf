#include "binding/ZtStandard.h"

// ---- Names --------------------------------------------------------------------------------------

namespace {

ZtMatch Matched(const ZtField& row, const ZtElementType* type, ZtSpace own) {
  if (!type) return {&row, nullptr, own, own};
  const ZtElementType& standard = ZtStandardOf(*type);
  return {&row, &standard, own, standard.space ? ZtSpace{standard.space} : own};
}

// The namespace of an object's element inside of `space`.
ZtSpace SpaceOf(const ZtElementType& type, ZtNameId prefix, ZtSpace space) {
  const ZtSpace own = ZtSpaceOfPrefix(prefix.IsNone() ? type.prefix : prefix);
  return own ? own : space;
}

bool Fits(ZtSpace expected, ZtSpace actual, bool plain) {
  return actual == expected || (plain && actual == kZtNoSpace);
}

const ZtChoice* ChoiceOf(const ZtChoice* choices, const XMLElement& child) {
  const char* className = child.ClassName();
  for (const ZtChoice* at = choices; at && at->type && className; ++at) {
    if (!at->name.IsNone() && ZtIsClass(className, *at->type)) return at;
  }
  return nullptr;
}

}  // namespace

ZtMatch ZtMatchChild(const ZtElementType& parent, const ZtField*& next, ZtSpace space,
                     ZtSpace actual, ZtPiece local, bool plain) {
  const ZtField* const due = next;
  const bool isDue = due != parent.end() && due->HasName() && due->name.Is(local);
  const ZtNameId name = isDue ? due->name : ZtNameId::Of(local);
  if (name == kZtNoName) return {};
  const ZtField* row = isDue ? due : ZtFindChild(parent, name);
  if (row && !row->IsOwnText()) {
    const bool isObject = row->place == ZtPlace::kChild || row->place == ZtPlace::kChildren;
    const ZtElementType* type = isObject ? row->detail.type : nullptr;
    const ZtSpace own = type ? SpaceOf(*type, XML_STR_ZT_NULL, space) : space;
    if (Fits(own, actual, plain)) {
      next = row->Repeats() ? row : row + 1;
      return Matched(*row, type, own);
    }
  }
  const ZtChoice* choice = ZtFindNamed(parent.Choices(), name);
  if (!choice) return {};
  const ZtSpace own = SpaceOf(*choice->type, choice->prefix, space);
  if (!Fits(own, actual, plain)) return {};
  return Matched(parent.begin()[parent.rows.others - 1], choice->type, own);
}

ZtMatch ZtMatchObject(const ZtField& row, ZtSpace space, const XMLElement& child) {
  switch (row.place) {
    case ZtPlace::kChild:
    case ZtPlace::kChildren:
      if (!ZtIsA(child, *row.detail.type)) return {};
      return Matched(row, row.detail.type, SpaceOf(*row.detail.type, XML_STR_ZT_NULL, space));
    case ZtPlace::kOtherChild:
    case ZtPlace::kOtherChildren: {
      const ZtChoice* choice = ChoiceOf(row.detail.choices, child);
      if (!choice) return {};
      return Matched(row, choice->type, SpaceOf(*choice->type, choice->prefix, space));
    }
    default:
      return Matched(row, nullptr, space);
  }
}

ZtPiece ZtNameOfObject(const ZtField& row, const XMLElement& child) {
  if (row.HasName()) return row.name.Piece();
  const ZtChoice* choice = ChoiceOf(row.detail.choices, child);
  if (!choice) return nullptr;
  if (!choice->type->extras->flag) return choice->name.Piece();
  // Of a flag the name is the value: one of those that the choice has.
  const char* name = static_cast<const zt_empty_element_type&>(child).getValue();
  const ZtNameId id = ZtNameId::Of(name);
  return name && id != kZtNoName && ZtFindNamed(choice, id) == choice ? id.Piece() : nullptr;
}

std::uint32_t ZtIndexOf(const XMLElement& parent, const ZtField& row, const XMLElement& entry) {
  if (ZtIsSingle(row)) return 0;
  std::uint32_t index = 0;
  for (const ZtListNode* node = row.Children(parent).Head(); node; node = node->next) {
    const auto* other = static_cast<const XMLElement*>(node->data);
    if (other && other->ClassName() == entry.ClassName()) ++index;
    if (other == &entry) break;
  }
  return index;
}

// ---- Values -------------------------------------------------------------------------------------

namespace {

// The digits of an unsigned number, as XML Schema has them; false when it is none or too large.
bool ParseDigits(ZtPiece text, unsigned long long most, unsigned long long& number) {
  const char* at = text.text;
  const char* const end = at + text.size;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '+' || negative)) ++at;
  if (at == end) return false;
  number = 0;
  for (; at != end; ++at) {
    if (*at < '0' || *at > '9') return false;
    const auto digit = static_cast<unsigned>(*at - '0');
    if (number > most / 10 || (number == most / 10 && digit > most % 10)) return false;
    number = number * 10 + digit;
  }
  return !negative || number == 0;  // "-0" is 0
}

// A decimal without its point and the zeros after it, which add nothing.
ZtPiece WithoutZeros(ZtPiece text) {
  std::size_t size = text.size;
  while (size && text.text[size - 1] == '0') --size;
  return size && text.text[size - 1] == '.' ? ZtPiece(text.text, size - 1) : text;
}

bool IsBoolean(const ZtEnumTable& values) {
  return values.count == 2 &&
         (values.slots == kBooleanSlots || values.slots == kSchemaBooleanSlots);
}

ZtStated ParseEnum(const ZtEnumTable& values, ZtPiece text) {
  const ZtEnumSlot* slots = values.slots;
  unsigned count = values.count;
  if (IsBoolean(values)) {
    slots = kSchemaBooleanSlots;
    count = 4;  // with "0" and "1"
  }
  for (unsigned i = 0; i < count; ++i) {
    if (ZtEqual(slots[i].Piece(), text)) return ZtStated::Number(i % values.count);
  }
  return {};
}

}  // namespace

bool operator==(const ZtStated& one, const ZtStated& other) {
  if (one.stated != other.stated || one.number != other.number) return false;
  if (!one.text.text || !other.text.text) return one.text.text == other.text.text;
  return ZtEqual(one.text, other.text);
}

ZtPiece ZtTrimmedEnds(ZtPiece text) {
  while (text.size && ZtIsBlank(*text.text)) text = {text.text + 1, text.size - 1};
  while (text.size && ZtIsBlank(text.text[text.size - 1])) --text.size;
  return text;
}

ZtStated ZtParseScalar(const ZtField& row, ZtPiece text) {
  text = ZtTrimmed(text);
  if (row.value == ZtValue::kEnum) return ParseEnum(*row.detail.values, text);
  const bool is32 = row.value == ZtValue::kNumber;
  const ZtRange* range = is32 ? row.detail.range : nullptr;
  if (range && range->isDecimal) text = WithoutZeros(text);
  unsigned long long number = 0;
  if (!ParseDigits(text, is32 ? ~0U : ~0ULL, number)) return {};
  if (range && (number < range->least || number > range->most)) return {};
  return ZtStated::Number(number);
}

ZtStated ZtHeld(const XMLElement& object, const ZtField& row) {
  switch (row.value) {
    case ZtValue::kText:
      return ZtStated::Text(row.Text(object).Piece());
    case ZtValue::kNumber64: {
      const ZtNumber64& number = row.Number64(object);
      return number.IsSet() ? ZtStated::Number(number.Get()) : ZtStated();
    }
    case ZtValue::kNumber: {
      const ZtNumber& number = row.Number(object);
      const ZtRange* range = row.detail.range;
      const bool fits = !range || (number.Get() >= range->least && number.Get() <= range->most);
      return number.IsSet() && fits ? ZtStated::Number(number.Get()) : ZtStated();
    }
    case ZtValue::kEnum: {
      const ZtNumber& index = row.Number(object);
      const bool known = index.IsSet() && index.Get() < row.detail.values->count;
      return known ? ZtStated::Number(index.Get()) : ZtStated();
    }
    case ZtValue::kObject:
      break;
  }
  return {};
}

bool ZtHolds(const XMLElement& object, const ZtField& row, ZtPiece text) {
  if (row.value != ZtValue::kText) return ZtParse(row, text) == ZtHeld(object, row);
  const ZtPiece held = row.Text(object).Piece();
  if (!row.Is(kZtFreeText)) text = ZtTrimmed(text);
  if (!held.text || held.size != text.size) return false;
  return !text.size || ZtSameBytes(held.text, text.text, text.size);
}

ZtPiece ZtTextOf(const ZtField& row, const ZtStated& value, char* buffer) {
  if (!value.stated) return nullptr;
  if (row.value == ZtValue::kText) return value.text;
  if (row.value == ZtValue::kEnum) return row.detail.values->slots[value.number].Piece();
  return ZtFormatNumber(value.number, buffer);
}

ZtPiece ZtTextHeld(const XMLElement& object, const ZtField& row, char* buffer) {
  if (row.value == ZtValue::kText) return row.Text(object).Piece();
  return ZtTextOf(row, ZtHeld(object, row), buffer);
}

bool ZtKeep(XMLElement& object, const ZtField& row, const ZtStated& value, const ZtArena* arena) {
  if (!value.stated) return true;
  switch (row.value) {
    case ZtValue::kText: {
      ZtText& text = row.Text(object);
      if (!arena || !arena->Holds(value.text.text)) return text.Set(value.text);
      text.Refer(value.text);
      break;
    }
    case ZtValue::kNumber64:
      row.Number64(object).Set(value.number);
      break;
    default:
      row.Number(object).Set(value.number);
  }
  return true;
}

void ZtClear(XMLElement& object, const ZtField& row) {
  switch (row.value) {
    case ZtValue::kText:
      static_cast<void>(row.Text(object).Set(nullptr));
      break;
    case ZtValue::kNumber64:
      row.Number64(object) = 0;
      break;
    case ZtValue::kNumber:
      row.Number(object) = 0;
      break;
    case ZtValue::kEnum: {
      const ZtEnumTable& values = *row.detail.values;
      const unsigned none = values.noMatch == kZtKeepsValue ? ~0U : values.noMatch;
      row.Number(object) = row.HasDefault() ? row.standsFor : none;
      break;
    }
    case ZtValue::kObject:
      break;
  }
}

void ZtSetDefaults(XMLElement& object, const ZtElementType& type) {
  if (!type.rows.hasDefaults) return;
  for (const ZtField& row : type) {
    if (row.HasDefault()) row.Number(object) = row.standsFor;
  }
}
