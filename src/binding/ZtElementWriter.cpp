#include "binding/ZtElementWriter.h"

#include <algorithm>

#include "base/ZtHash.h"
#include "ztxml/ZtNamespaces.h"

namespace {

// ZtFieldText without a call for what most fields are.
inline ZtPiece TextOf(const XMLElement& element, const ZtField& field, char* buffer) {
  return field.value == ZtValue::kText ? field.Text(element).Piece()
                                       : ZtFieldText(element, field, buffer);
}

// Whether there is nothing to do where the row has no value.
inline bool IsSilentWhenAbsent(const ZtField& field) {
  return !(field.flags & (kZtRequired | kZtAlways | kZtLogged));
}

// What the writer logs of a row that cannot be written as others are; null for what it logs of all.
[[gnu::cold]] const ZtNote* FindNote(const ZtElementType& type, const ZtField& field) {
  const ZtFamily& family = *type.family;
  const auto* note =
      std::find_if(family.notes, family.notes + family.noteCount, [&](const ZtNote& one) {
        return one.row == field.name && (!one.label || __strcmp(one.label, type.label) == 0);
      });
  return note == family.notes + family.noteCount ? nullptr : note;
}

constexpr std::size_t kMostFlagName = 98;  // the longest that a table may ask for

// Of `x ="1"` the parser keeps the blank: the attribute's name is what stands before it.
std::size_t NameSize(const char* name) { return std::strcspn(name, " \t\r\n"); }

// The names of the attributes that a tag has. The set holds as many as a whole document has room
// for: what comes after those would be cut off anyway.
class NameSet {
 public:
  NameSet() = default;
  ~NameSet() {
    if (m_Slots != m_Few) __free(m_Slots);
  }
  NameSet(const NameSet&) = delete;
  NameSet& operator=(const NameSet&) = delete;

  // Room for `count` names, or for those that fit; false without memory.
  bool Reserve(std::size_t count) {
    if (count > kMostNames) count = kMostNames;
    std::size_t slots = kFewSlots;
    while (slots < 2 * count) slots *= 2;
    if (slots == kFewSlots) return true;
    auto* memory = static_cast<const char**>(__calloc(slots, sizeof(const char*)));
    if (!memory) return false;
    m_Slots = memory;
    m_iMask = slots - 1;
    return true;
  }

  bool IsFull() const { return m_iCount == kMostNames; }

  // False when the name is in the set already.
  bool Insert(ZtPiece name) {
    std::size_t slot = Hash(name) & m_iMask;
    for (; m_Slots[slot]; slot = (slot + 1) & m_iMask) {
      if (NameSize(m_Slots[slot]) == name.size &&
          std::memcmp(m_Slots[slot], name.text, name.size) == 0) {
        return false;
      }
    }
    m_Slots[slot] = name.text;
    ++m_iCount;
    return true;
  }

 private:
  static constexpr std::size_t kFewSlots = 16;
  static constexpr std::size_t kMostNames = ZtXMLDocGenerator::kBufferSize / sizeof(" a=\"\"");

  std::size_t Hash(ZtPiece name) const {
    return static_cast<std::size_t>(ZtHash(name, ZtSeed(this)));
  }

  const char* m_Few[kFewSlots] = {};
  const char** m_Slots = m_Few;
  std::size_t m_iMask = kFewSlots - 1;
  std::size_t m_iCount = 0;
};

// Whether a row among which one is chosen has something to write.
bool IsSet(const XMLElement& element, const ZtField& field) {
  char buffer[kZtNumberSize];
  switch (field.place) {
    case ZtPlace::kChild:
      return field.Child(element).Get();
    case ZtPlace::kTextElement:
      return field.Is(kZtAlways) || ZtFieldText(element, field, buffer).text;
    default:
      return field.Children(element).Head();
  }
}

// The choice by which an element of a class is written, null when there is none. The library's own
// names are told by where they lie.
const ZtChoice* FindClass(const ZtChoice* choices, const char* className) {
  for (const ZtChoice* at = choices; at->type; ++at) {
    if (at->writer && at->type->className == className) return at;
  }
  for (const ZtChoice* at = choices; at->type; ++at) {
    if (at->writer && __strcmp(at->type->className, className) == 0) return at;
  }
  return nullptr;
}

// Whether any of what a row keeps is written.
bool IsWritten(const ZtChoice* choices) {
  while (choices && choices->type && !choices->writer) ++choices;
  return choices && choices->type;
}

// Whether the element's start tag carries an attribute `name` by what its type says.
bool Carries(const XMLElement& element, const ZtElementType& type, bool declares, ZtPiece name) {
  if (const ZtField* field = ZtFindAttribute(type, ZtNameId::Of(name))) {
    char buffer[kZtNumberSize];
    return field->Is(kZtAlways) || ZtFieldText(element, *field, buffer).text;
  }
  if (!declares) return false;
  for (const ZtFixedAttribute& fixed : type.extras->declares) {
    const bool plain = fixed.suffix == XML_STR_ZT_NULL;
    const ZtPiece own = ZtNameId(fixed.name).Piece();
    const ZtPiece suffix = plain ? nullptr : ZtNameId(fixed.suffix).Piece();
    if (name.size != own.size + (plain ? 0 : 1 + suffix.size)) continue;
    if (!ZtSameBytes(name.text, own.text, own.size)) continue;
    const char* const colon = name.text + own.size;
    if (plain || (*colon == ':' && ZtSameBytes(colon + 1, suffix.text, suffix.size))) return true;
  }
  return false;
}

}  // namespace

// Depth and prefix hold for the element and what is in it.
int ZtElementWriter::Write(XMLElement* element, const ZtElementType& type, ZtNameId prefix,
                           ZtNameId name) {
  const ZtFamily& family = *type.family;
  if (Tells(family.entryLevel) && type.writer)
    Log(family.entryLevel, family.entryLine, type.writer);
  // A caller's list may hold anything: rows are applied to objects of their own type only.
  if (!element || m_iDepth == kMostDepth || !ZtIsClass(element->ClassName(), type)) {
    return Refuses(element, type);
  }
  ++m_iDepth;
  const ZtNameId outer = m_Prefix;
  if (prefix.IsNone()) prefix = type.prefix;
  const bool changes = !prefix.IsNone() && prefix != outer;
  if (changes) ChangePrefix(prefix);
  const int written = WriteElement(*element, type, name);
  --m_iDepth;
  if (changes) ChangePrefix(outer);
  return written;
}

[[gnu::cold]] int ZtElementWriter::Refuses(const XMLElement* element, const ZtElementType& type) {
  const ZtFlag* const flag = type.extras->flag;
  if (!element && flag) Log(kZtLogState, flag->nullLine, m_Scope.marshaller);
  if (!element || !ZtIsClass(element->ClassName(), type)) {
    return Lacks(ZtLack::Why::kClass, element);
  }
  Log(kZtLogError, "<XML Module>: more than %d elements within each other", kMostDepth);
  m_bIncomplete = true;
  return Lacks(ZtLack::Why::kDepth, element);
}

[[gnu::always_inline]] inline int ZtElementWriter::WriteElement(const XMLElement& element,
                                                                const ZtElementType& type,
                                                                ZtNameId name) {
  const ZtExtras& extras = *type.extras;
  if (extras.flag) {
    return WriteFlag(static_cast<const zt_empty_element_type&>(element), *extras.flag);
  }
  if (extras.write) return extras.write(*this, element, type) || LacksSomething(element);
  if (name.IsNone()) name = type.tag;
  if (type.checksFirst && !HasRequired(element, type)) return 0;
  const bool tagged = !name.IsNone();
  if (tagged && !WriteStartTag(element, type, name)) return 0;
  if (type.start == ZtStartTag::kEmpty) return 1;
  const bool written =
      extras.content ? extras.content(*this, element, type) : WriteRows(element, type);
  if (!written) return LacksSomething(element);
  if (tagged) m_Pen.End(name.Piece());
  return 1;
}

void ZtElementWriter::ChangePrefix(ZtNameId prefix) {
  m_Prefix = prefix;
  const ZtPiece text = prefix.IsNone() ? ZtPiece(nullptr) : prefix.Piece();
  const ZtNamespaceBinding* binding =
      m_Scope.namespaces ? m_Scope.namespaces->Find(text.text) : nullptr;
  m_Pen.Prefix(binding ? binding->alias.Piece() : text);
}

int ZtElementWriter::WriteFlag(const zt_empty_element_type& flag, const ZtFlag& how) {
  const char* name = flag.getValue();
  if (!flag.getPresentValue() || (how.mostName && !name)) {
    Log(kZtLogState, how.absentLine, m_Scope.marshaller);
    return Lacks(ZtLack::Why::kValue, &flag);
  }
  char cut[kMostFlagName + 1];
  if (how.mostName && how.mostName < sizeof(cut) && __strlen(name) > how.mostName) {
    std::memcpy(cut, name, how.mostName);
    cut[how.mostName] = '\0';
    name = cut;
  }
  if (name) m_Pen.Empty(ZtPiece(name));
  return 1;
}

void ZtElementWriter::LogAbsent(const XMLElement& element, const ZtElementType& type,
                                const ZtField& field) const {
  static constexpr ZtNote kRequired = {nullptr, XML_STR_ZT_NULL, kZtLogError,
                                       "<XML Module>: %s: %s is required"};
  const ZtNote* note = FindNote(type, field);
  if (!note && field.Is(kZtRequired)) note = &kRequired;
  if (note) Log(note->level, note->line, element.ClassName(), field.name.Piece().text);
}

bool ZtElementWriter::HasRequired(const XMLElement& element, const ZtElementType& type) {
  char buffer[kZtNumberSize];
  for (const ZtField* field = type.begin(); field != type.children(); ++field) {
    if (!field->Is(kZtRequired) || ZtFieldText(element, *field, buffer).text) continue;
    LogAbsent(element, type, *field);
    return Lacks(ZtLack::Why::kValue, &element, field);
  }
  return true;
}

[[gnu::always_inline]] inline bool ZtElementWriter::WriteStartTag(const XMLElement& element,
                                                                  const ZtElementType& type,
                                                                  ZtNameId name) {
  ZtPen::Tag tag(m_Pen, name.Piece());
  // An element under another name stands inside of one that has declared what it needs.
  if (type.extras->declares.size() && name == type.tag) {
    tag.Leave();
    WriteDeclared(type);
    tag.Resume();
  }
  bool awaited = false;
  const ZtField* const end = type.children();
  for (const ZtField* at = type.begin(); at != end; ++at) {
    if (at->place == ZtPlace::kAttribute) {
      if (!WriteAttribute(tag, element, type, *at)) return false;
      continue;
    }
    const ZtAttributeList& others = at->Attributes(element);
    if (!others.Get()) continue;
    tag.Leave();
    awaited = type.start == ZtStartTag::kAwaitsExtras && !others.Head();
    if (!WriteOtherAttributes(others.Head(), &element, &type, name == type.tag)) return false;
    tag.Resume();
  }
  if (type.start >= ZtStartTag::kStaysOpen) {
    tag.Leave();
    if (awaited || (type.start == ZtStartTag::kStaysOpen && !m_Pen.HasAttribute())) return true;
  }
  tag.Close(type.start == ZtStartTag::kEmpty);
  return true;
}

// Whether the element may go on. What most attributes are is written here, from the object to the
// text in one step.
[[gnu::always_inline]] inline bool ZtElementWriter::WriteAttribute(ZtPen::Tag& tag,
                                                                   const XMLElement& element,
                                                                   const ZtElementType& type,
                                                                   const ZtField& field) {
  unsigned long long number = 0;
  if (field.value == ZtValue::kText) {
    const ZtPiece text = field.Text(element).Piece();
    if (text.text) {
      tag.Text(field.name.Piece(), text);
      return true;
    }
  } else if (field.value == ZtValue::kEnum) {
    const ZtEnumTable& values = *field.detail.values;
    const unsigned index = field.Number(element).Get();
    if (index < values.count) {
      tag.Constant(field.name.Piece(), values.slots[index].Piece());
      return true;
    }
  } else if (field.value == ZtValue::kNumber) {
    number = field.Number(element).Get();
    if (number == kZtNotSet) number = 0;
  } else if (field.value == ZtValue::kNumber64) {
    number = field.Number64(element).Get();
  }
  if (number - 1 < UINT32_MAX) {
    tag.Number(field.name.Piece(), static_cast<std::uint32_t>(number));
    return true;
  }
  if (number == 0 && IsSilentWhenAbsent(field)) return true;
  tag.Leave();
  const bool goesOn = WriteAnyAttribute(element, type, field);
  tag.Resume();
  return goesOn;
}

bool ZtElementWriter::WriteAnyAttribute(const XMLElement& element, const ZtElementType& type,
                                        const ZtField& field) {
  char buffer[kZtNumberSize];
  const ZtPiece text = ZtFieldText(element, field, buffer);
  if (!text.text) {
    LogAbsent(element, type, field);
    if (field.Is(kZtRequired)) return Lacks(ZtLack::Why::kValue, &element, &field);
    if (!field.Is(kZtAlways)) return true;
  }
  m_Pen.Attribute(field.name.Piece(), text);
  return true;
}

[[gnu::cold]] void ZtElementWriter::WriteDeclared(const ZtElementType& type) {
  for (const ZtFixedAttribute& fixed : type.extras->declares) {
    const ZtPaddedPiece name = ZtNameId(fixed.name).Piece();
    if (fixed.suffix == XML_STR_ZT_NULL) {
      m_Pen.Attribute(name, fixed.value.Piece());
    } else {
      m_Pen.Attribute(name, ZtNameId(fixed.suffix).Piece(), fixed.value.Piece());
    }
  }
}

// Whether the parent may go on. The child stands under its row's name, if that has one.
inline bool ZtElementWriter::WriteChild(XMLElement* child, int index, const ZtElementType& type,
                                        const ZtField& field, const ZtElementType& as,
                                        ZtNameId prefix) {
  return Write(child, as, prefix, field.name) != 0 || MayLackChild(index, type, field, as);
}

[[gnu::always_inline]] inline bool ZtElementWriter::WriteList(const XMLElement& element,
                                                              const ZtElementType& type,
                                                              const ZtField& field) {
  int index = 0;
  for (ZtListNode* node = field.Children(element).Head(); node; node = node->next) {
    auto* const child = static_cast<XMLElement*>(node->data);
    if (child && !WriteChild(child, index, type, field, *field.detail.type)) return false;
    ++index;
  }
  return true;
}

bool ZtElementWriter::WriteChildren(const XMLElement& element, const ZtElementType& type) {
  return WriteRows(element, type);
}

[[gnu::always_inline]] inline bool ZtElementWriter::WriteRows(const XMLElement& element,
                                                              const ZtElementType& type) {
  bool chosen = false;
  const ZtField* const end = type.end();
  for (const ZtField* at = type.children(); at != end; ++at) {
    const ZtField& field = *at;
    if (field.Is(kZtOneOf)) {
      if (chosen || !IsSet(element, field)) continue;
      chosen = true;
    }
    if (field.place == ZtPlace::kTextElement) {
      if (!WriteTextElement(element, type, field)) return false;
    } else if (field.place == ZtPlace::kChild) {
      XMLElement* const child = field.Child(element).Get();
      if (child && !WriteChild(child, 0, type, field, *field.detail.type)) return false;
    } else if (field.place == ZtPlace::kOwnText) {
      char buffer[kZtNumberSize];
      m_Pen.Text(TextOf(element, field, buffer));
    } else if (field.place == ZtPlace::kOtherChild) {
      if (!WriteOther(field.Child(element).Get(), type, field)) return false;
    } else if (field.Children(element).Get()) {
      if (field.place == ZtPlace::kChildren) {
        if (!WriteList(element, type, field)) return false;
      } else if (field.place == ZtPlace::kOtherChildren) {
        if (!WriteOthers(element, type, field)) return false;
      } else {
        WriteTexts(element, field);
      }
    }
  }
  return true;
}

[[gnu::cold]] void ZtElementWriter::LogName(const ZtField& field) const {
  const char* name = field.name.Text();
  Log(kZtLogTrace, "<XML Module>: Add%c%sElementToXml", *name - 'a' + 'A', name + 1);
}

// Whether the element may go on.
[[gnu::always_inline]] inline bool ZtElementWriter::WriteTextElement(const XMLElement& element,
                                                                     const ZtElementType& type,
                                                                     const ZtField& field) {
  if (field.value != ZtValue::kText) return WriteAnyTextElement(element, type, field);
  const ZtPiece text = field.Text(element).Piece();
  if (!text.text) return IsSilentWhenAbsent(field) || WriteAnyTextElement(element, type, field);
  LogWriter(field);
  m_Pen.TextElement(field.name.Piece(), text);
  return true;
}

bool ZtElementWriter::WriteAnyTextElement(const XMLElement& element, const ZtElementType& type,
                                          const ZtField& field) {
  char buffer[kZtNumberSize];
  const ZtPiece text = ZtFieldText(element, field, buffer);
  if (text.text || field.Is(kZtAlways)) {
    LogWriter(field);
    m_Pen.TextElement(field.name.Piece(), text);
  }
  if (text.text) return true;
  LogAbsent(element, type, field);
  return !field.Is(kZtRequired) || Lacks(ZtLack::Why::kValue, &element, &field);
}

bool ZtElementWriter::Start(ZtNameId name, ZtSingleElementList* attributes) {
  m_Pen.Open(name.Piece());
  if (attributes &&
      !WriteOtherAttributes(attributes->GetPtrToListHead(), nullptr, nullptr, false)) {
    return false;
  }
  m_Pen.Close(false);
  return true;
}

[[gnu::cold]] void ZtElementWriter::End(ZtNameId name) { m_Pen.End(name.Piece()); }

// Attributes that no row names, in the order received, except those that the tag has already: the
// first of a name stands. `type` and `element` null: it has none yet. False without memory.
[[gnu::cold]] bool ZtElementWriter::WriteOtherAttributes(ZtListNode* head,
                                                         const XMLElement* element,
                                                         const ZtElementType* type, bool declares) {
  std::size_t count = 0;
  for (ZtListNode* node = head; node; node = node->next) ++count;
  if (count == 0) return true;
  NameSet names;
  if (!names.Reserve(count)) {
    m_bIncomplete = true;
    return false;
  }
  for (ZtListNode* node = head; node && !names.IsFull(); node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    const char* text = pair ? pair->getName() : nullptr;
    const ZtPiece name(text, text ? NameSize(text) : 0);
    if (name.size == 0) continue;
    if (type && Carries(*element, *type, declares, name)) continue;
    if (count > 1 && !names.Insert(name)) continue;
    m_Pen.Attribute(text, pair->getValue());
  }
  return true;
}

int ZtElementWriter::WriteText(const ZtField& field, ZtPiece text) {
  LogWriter(field);
  if (!text.text && !field.Is(kZtAlways)) return 0;
  m_Pen.TextElement(field.name.Piece(), text);
  return 1;
}

void ZtElementWriter::WriteText(ZtNameId name, ZtPiece text) {
  m_Pen.TextElement(name.Piece(), text);
}

// Text elements under one name, or the words of the element's own text.
void ZtElementWriter::WriteTexts(const XMLElement& element, const ZtField& field) {
  const char* blank = "";
  for (ZtListNode* node = field.Children(element).Head(); node; node = node->next) {
    const auto* text = zt_string::From(static_cast<XMLElement*>(node->data));
    if (!text) continue;
    if (field.place == ZtPlace::kTextElements) {
      WriteText(field.name, text->getValue());
    } else if (text->getValue()) {  // a word
      m_Pen.Text(blank);
      m_Pen.Text(text->getValue());
      blank = " ";
    }
  }
}

[[gnu::cold]] bool ZtElementWriter::MayLackChild(int index, const ZtElementType& type,
                                                 const ZtField& field, const ZtElementType& as) {
  const ZtNote* const note = field.HasName() ? FindNote(type, field) : nullptr;
  if (note) {
    Log(note->level, note->line, index);
  } else if (!field.Is(kZtLenient) && as.writer) {
    Log(kZtLogTrace, as.family->childFailed, as.writer);
  }
  if (!field.Is(kZtLenient)) return false;
  m_Lack = {};
  return true;
}

bool ZtElementWriter::WriteOthers(const XMLElement& element, const ZtElementType& type,
                                  const ZtField& field) {
  const ZtChildList& others = field.Children(element);
  if (!IsWritten(field.detail.choices)) {
    const ZtNote* const note = others.Get() ? FindNote(type, field) : nullptr;
    if (note) Log(note->level, note->line);
    return true;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    if (!WriteOther(static_cast<XMLElement*>(node->data), type, field)) return false;
  }
  return true;
}

bool ZtElementWriter::WriteOther(XMLElement* child, const ZtElementType& type,
                                 const ZtField& field) {
  const char* className = child ? child->ClassName() : nullptr;
  if (!className) return true;
  if (const ZtChoice* choice = FindClass(field.detail.choices, className)) {
    return WriteChild(child, 0, type, field, *choice->writer, choice->prefix);
  }
  if (const ZtNote* note = FindNote(type, field)) Log(note->level, note->line, className);
  return true;
}
