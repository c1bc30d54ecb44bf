#include "binding/ZtElementWriter.h"

#include "base/ZtHash.h"
#include "ztxml/ZtNamespaces.h"

// The inside of an element: its depth and prefix hold until it ends.
class ZtElementWriter::Nesting {
 public:
  Nesting(ZtElementWriter& owner, ZtNameId prefix) : m_Owner(owner), m_Outer(owner.m_Prefix) {
    ++owner.m_iDepth;
    if (prefix != XML_STR_ZT_NULL) Change(prefix);
  }
  ~Nesting() {
    --m_Owner.m_iDepth;
    if (m_Owner.m_Prefix != m_Outer) Change(m_Outer);
  }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  void Change(ZtNameId prefix) { m_Owner.ChangePrefix(prefix); }

  ZtElementWriter& m_Owner;
  ZtNameId m_Outer;
};

void ZtElementWriter::ChangePrefix(ZtNameId prefix) {
  m_Prefix = prefix;
  const ZtPiece text = prefix == XML_STR_ZT_NULL ? nullptr : ZtNameId(prefix).Piece();
  const ZtNamespaceBinding* binding =
      m_Scope.namespaces ? m_Scope.namespaces->Find(text.text) : nullptr;
  m_Pen.Prefix(binding ? binding->alias.Piece() : text);
}

// A start tag. One that is never closed stays open in the text.
class ZtElementWriter::StartTag {
 public:
  StartTag(ZtPen& pen, ZtPaddedPiece element) : m_Pen(pen) { pen.Open(element); }

  [[gnu::always_inline]] void Add(ZtNameId name, ZtPiece value) { AddOther(name.Piece(), value); }
  void Add(const ZtFixedAttribute& fixed) {
    if (fixed.suffix == XML_STR_ZT_NULL) return Add(fixed.name, fixed.value.Piece());
    m_bEmpty = false;
    m_Pen.Attribute(ZtNameId(fixed.name).Piece(), ZtNameId(fixed.suffix).Piece(),
                    fixed.value.Piece());
  }
  // One whose name may be any text.
  template <class Name>
  [[gnu::always_inline]] void AddOther(Name name, ZtPiece value) {
    m_bEmpty = false;
    m_Pen.Attribute(name, value);
  }
  bool IsEmpty() const { return m_bEmpty; }
  void Close(bool selfEnd) { m_Pen.Close(selfEnd); }

 private:
  ZtPen& m_Pen;
  bool m_bEmpty = true;
};

namespace {

// ZtFieldText without a call for what most fields are.
inline ZtPiece TextOf(const XMLElement& element, const ZtField& field, char* buffer) {
  return field.value == ZtValue::kText ? (element.*field.member.text).Piece()
                                       : ZtFieldText(element, field, buffer);
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
      return (element.*field.member.child).Get();
    case ZtPlace::kTextElement:
      return field.Is(kZtAlways) || ZtFieldText(element, field, buffer).text;
    default:
      return (element.*field.member.children).Head();
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
bool Carries(const XMLElement& element, const ZtElementType& type,
             std::initializer_list<ZtFixedAttribute> declared, ZtPiece name) {
  if (const ZtField* field = ZtFindAttribute(type, ZtNameId::Of(name))) {
    char buffer[kZtNumberSize];
    return field->Is(kZtAlways) || ZtFieldText(element, *field, buffer).text;
  }
  for (const ZtFixedAttribute& fixed : declared) {
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

int ZtElementWriter::Write(XMLElement* element, const ZtElementType& type, ZtNameId prefix,
                           ZtNameId name) {
  if (type.writer) {
    Log(type.family->entryLevel, type.family->entryLine, type.writer);
  }
  const ZtExtras& extras = *type.extras;
  if (!element && extras.flag) Log(kZtLogState, extras.flag->nullLine, m_Scope.marshaller);
  // A caller's list may hold anything: rows are applied to objects of their own type only.
  if (!element || !ZtIsClass(element->ClassName(), type)) {
    return Lacks(ZtLack::Why::kClass, element);
  }
  if (m_iDepth == kMostDepth) {
    Log(kZtLogError, "<XML Module>: more than %d elements within each other", kMostDepth);
    m_bIncomplete = true;
    return Lacks(ZtLack::Why::kDepth, element);
  }
  const Nesting nesting(*this, prefix == XML_STR_ZT_NULL ? type.prefix : prefix);
  if (extras.flag) return WriteFlag(static_cast<zt_empty_element_type&>(*element), *extras.flag);
  if (extras.write) {
    return extras.write(*this, *element, type) || LacksSomething(*element);
  }
  if (name.IsNone()) name = type.tag;
  if (type.checksFirst && !HasRequired(*element, type)) return 0;
  const ZtPaddedPiece tag = name.IsNone() ? nullptr : name.Piece();
  if (tag.text && !WriteStartTag(*element, type, tag, name == type.tag)) return 0;
  if (type.start == ZtStartTag::kEmpty) return 1;
  const bool written =
      extras.content ? extras.content(*this, *element, type) : WriteChildren(*element, type);
  if (!written) return LacksSomething(*element);
  if (tag.text) m_Pen.End(tag);
  return 1;
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

bool ZtElementWriter::WriteChildren(const XMLElement& element, const ZtElementType& type) {
  bool chosen = false;
  const ZtField* const end = type.end();
  for (const ZtField* at = type.children(); at != end; ++at) {
    const ZtField& field = *at;
    if (field.Is(kZtOneOf)) {
      if (chosen || !IsSet(element, field)) continue;
      chosen = true;
    }
    if (field.place == ZtPlace::kTextElement) {
      char buffer[kZtNumberSize];
      const ZtPiece text = TextOf(element, field, buffer);
      if (text.text || field.Is(kZtAlways)) {
        LogWriter(field);
        m_Pen.TextElement(field.name.Piece(), text);
      }
      if (text.text) continue;
      Log(field.noteLevel, field.note);
      if (field.Is(kZtRequired)) return Lacks(ZtLack::Why::kValue, &element, &field);
    } else if (field.place == ZtPlace::kChild) {
      XMLElement* child = (element.*field.member.child).Get();
      if (child && !WriteChild(child, 0, field, *field.detail.type)) {
        return false;
      }
    } else if (field.place == ZtPlace::kOtherChild) {
      if (!WriteOther((element.*field.member.child).Get(), field)) return false;
    } else if ((element.*field.member.children).Get() || field.place == ZtPlace::kOwnText) {
      if (!WriteMany(element, field)) return false;
    }
  }
  return true;
}

bool ZtElementWriter::HasRequired(const XMLElement& element, const ZtElementType& type) {
  char buffer[kZtNumberSize];
  for (const ZtField* field = type.begin(); field != type.children(); ++field) {
    if (!field->Is(kZtRequired) || ZtFieldText(element, *field, buffer).text) continue;
    Log(field->noteLevel, field->note);
    return Lacks(ZtLack::Why::kValue, &element, field);
  }
  return true;
}

bool ZtElementWriter::WriteStartTag(const XMLElement& element, const ZtElementType& type,
                                    ZtPaddedPiece name, bool isOwnName) {
  StartTag tag(m_Pen, name);
  char buffer[kZtNumberSize];
  bool awaited = false;
  // An element under another name stands inside of one that has declared what it needs.
  const auto declared =
      isOwnName ? type.extras->declares : std::initializer_list<ZtFixedAttribute>();
  for (const ZtFixedAttribute& fixed : declared) tag.Add(fixed);
  const ZtField* const end = type.children();
  for (const ZtField* at = type.begin(); at != end; ++at) {
    const ZtField& field = *at;
    if (field.place == ZtPlace::kOtherAttributes) {
      const ZtAttributeList& others = element.*field.member.attributes;
      if (!others.Get()) continue;
      awaited = type.start == ZtStartTag::kAwaitsExtras && !others.Head();
      if (!WriteOtherAttributes(others.Head(), &element, &type, declared, tag)) return false;
      continue;
    }
    const ZtPiece text = TextOf(element, field, buffer);
    if (!text.text) {
      Log(field.noteLevel, field.note);
      if (field.Is(kZtRequired)) return Lacks(ZtLack::Why::kValue, &element, &field);
      if (!field.Is(kZtAlways)) continue;
    }
    tag.Add(field.name, text);
  }
  const bool closes = type.start != ZtStartTag::kStaysOpen || !tag.IsEmpty();
  if (!awaited && closes) tag.Close(type.start == ZtStartTag::kEmpty);
  return true;
}

bool ZtElementWriter::Start(ZtNameId name, ZtSingleElementList* attributes) {
  StartTag tag(m_Pen, name.Piece());
  if (attributes &&
      !WriteOtherAttributes(attributes->GetPtrToListHead(), nullptr, nullptr, {}, tag)) {
    return false;
  }
  tag.Close(false);
  return true;
}

// Attributes that no row names, in the order received, except those that the tag has already: the
// first of a name stands. `type` and `element` null: it has none yet. False without memory.
bool ZtElementWriter::WriteOtherAttributes(ZtListNode* head, const XMLElement* element,
                                           const ZtElementType* type,
                                           std::initializer_list<ZtFixedAttribute> declared,
                                           StartTag& tag) {
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
    if (type && Carries(*element, *type, declared, name)) continue;
    if (count > 1 && !names.Insert(name)) continue;
    tag.AddOther(ZtPiece(text), pair->getValue());
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

// What a row has that stands for more than one child, or for the element's own text.
bool ZtElementWriter::WriteMany(const XMLElement& element, const ZtField& field) {
  if (field.place == ZtPlace::kOwnText) {
    char buffer[kZtNumberSize];
    m_Pen.Text(TextOf(element, field, buffer));
    return true;
  }
  if (field.place == ZtPlace::kOtherChildren) return WriteOthers(element, field);
  const char* blank = "";
  int index = 0;
  for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
    auto* child = static_cast<XMLElement*>(node->data);
    if (field.place == ZtPlace::kChildren) {
      if (child && !WriteChild(child, index, field, *field.detail.type)) {
        return false;
      }
      ++index;
      continue;
    }
    const auto* text = zt_string::From(child);
    if (!text) continue;
    if (field.place == ZtPlace::kTextElements) {
      WriteText(field.name, text->getValue());
    } else if (text->getValue()) {  // a word
      m_Pen.Text(blank);
      m_Pen.Text(text->getValue());
      blank = " ";
    }
  }
  return true;
}

// Whether the parent may go on. The child stands under its row's name, if that has one.
bool ZtElementWriter::WriteChild(XMLElement* child, int index, const ZtField& field,
                                 const ZtElementType& type, ZtNameId prefix) {
  if (Write(child, type, prefix, field.name) != 0) return true;
  if (field.note && field.HasName()) {
    Log(field.noteLevel, field.note, index);
  } else if (!field.Is(kZtLenient) && type.writer) {
    Log(kZtLogTrace, type.family->childFailed, type.writer);
  }
  if (!field.Is(kZtLenient)) return false;
  m_Lack = {};
  return true;
}

bool ZtElementWriter::WriteOthers(const XMLElement& element, const ZtField& field) {
  const ZtChildList& others = element.*field.member.children;
  if (!IsWritten(field.detail.choices)) {
    if (others.Get()) Log(field.noteLevel, field.note);
    return true;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    if (!WriteOther(static_cast<XMLElement*>(node->data), field)) return false;
  }
  return true;
}

bool ZtElementWriter::WriteOther(XMLElement* child, const ZtField& field) {
  const char* className = child ? child->ClassName() : nullptr;
  if (!className) return true;
  if (const ZtChoice* choice = FindClass(field.detail.choices, className)) {
    return WriteChild(child, 0, field, *choice->writer, choice->prefix);
  }
  Log(field.noteLevel, field.note, className);
  return true;
}
