#include "binding/ZtElementWriter.h"

#include "ZtNamespaces.h"

// The prefix of the elements written while it lives.
class ZtElementWriter::Prefix {
 public:
  Prefix(ZtElementWriter& owner, e_XmlStrRef prefix) : m_Owner(owner), m_Outer(owner.m_Prefix) {
    if (prefix != XML_STR_ZT_NULL) Change(prefix);
  }
  ~Prefix() {
    if (m_Owner.m_Prefix != m_Outer) Change(m_Outer);
  }
  Prefix(const Prefix&) = delete;
  Prefix& operator=(const Prefix&) = delete;

 private:
  void Change(e_XmlStrRef prefix) {
    m_Owner.m_Prefix = prefix;
    const ZtPiece text = prefix == XML_STR_ZT_NULL ? nullptr : ZtNameId(prefix).Piece();
    const ZtNamespaceBindings* namespaces = m_Owner.m_Scope.namespaces;
    const ZtNamespaceBinding* binding = namespaces ? namespaces->Find(text.text) : nullptr;
    m_Owner.m_Pen.Prefix(binding ? binding->alias.Piece() : text);
  }

  ZtElementWriter& m_Owner;
  e_XmlStrRef m_Outer;
};

// A start tag. One that is never closed stays open in the text.
class ZtElementWriter::StartTag {
 public:
  StartTag(ZtPen& pen, ZtNameId element) : m_Pen(pen) { pen.Open(element.Piece()); }
  ~StartTag() {
    if (!m_bClosed) m_Pen.LeaveOpen();
  }
  StartTag(const StartTag&) = delete;
  StartTag& operator=(const StartTag&) = delete;

  void Add(ZtNameId name, ZtPiece value) {
    m_bEmpty = false;
    m_Pen.Attribute(name.Piece(), value);
  }
  void Add(const char* name, const char* value, const char* suffix) {
    m_bEmpty = false;
    m_Pen.Writer().ztAddNameSpacePrefixToXml(name, value, suffix, 0, 0);
  }
  bool IsEmpty() const { return m_bEmpty; }
  void Close(bool selfEnd) {
    m_bClosed = true;
    m_Pen.Close(selfEnd);
  }

 private:
  ZtPen& m_Pen;
  bool m_bEmpty = true;
  bool m_bClosed = false;
};

namespace {

constexpr std::size_t kMostFlagName = 98;  // the longest that a table may ask for

// Of `x ="1"` the parser keeps the blank: the attribute's name is what stands before it.
std::size_t NameSize(const char* name) { return std::strcspn(name, " \t\r\n"); }

// The names of the attributes that a tag has. It holds as many as fit into a document: all that are
// behind those are cut off.
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

  // False when the name of `size` bytes is in the set already.
  bool Insert(const char* name, std::size_t size) {
    std::size_t slot = Hash(name, size) & m_iMask;
    for (; m_Slots[slot]; slot = (slot + 1) & m_iMask) {
      if (NameSize(m_Slots[slot]) == size && std::memcmp(m_Slots[slot], name, size) == 0) {
        return false;
      }
    }
    m_Slots[slot] = name;
    ++m_iCount;
    return true;
  }

 private:
  static constexpr std::size_t kFewSlots = 16;
  static constexpr std::size_t kMostNames = ZtXMLDocGenerator::kBufferSize / sizeof(" a=\"\"");

  // Where the set lies makes the order of the slots one that a document cannot aim at.
  std::size_t Hash(const char* name, std::size_t size) const {
    std::uint64_t hash = reinterpret_cast<std::uintptr_t>(this);
    for (const char* end = name + size; name != end; ++name) {
      hash = (hash ^ static_cast<unsigned char>(*name)) * 0x100000001B3U;
    }
    hash = (hash ^ (hash >> 32)) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(hash >> 32);
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
      return field.always || ZtFieldText(element, field, buffer).text;
    default:
      return (element.*field.member.children).Head();
  }
}

// The entry of a class, its end when there is none. The library's own names are told by where they
// lie.
const ZtWritable* FindClass(const ZtWritable* writables, const char* className) {
  const ZtWritable* at = writables;
  while (at->type && at->type->className != className) ++at;
  if (at->type) return at;
  for (at = writables; at->type && __strcmp(at->type->className, className) != 0;) ++at;
  return at;
}

// Whether `name` is one of the attributes that the element's start tag carries anyway.
bool IsFixed(const ZtElementType& type, const char* name, std::size_t nameSize) {
  for (unsigned i = 0; i < type.fixedCount; ++i) {
    const ZtFixedAttribute& fixed = type.fixed[i];
    const char* own = ZtName(fixed.name);
    const std::size_t size = __strlen(own);
    if (nameSize < size || std::memcmp(name, own, size) != 0) continue;
    if (fixed.suffix == XML_STR_ZT_NULL) {
      if (nameSize == size) return true;
      continue;
    }
    const char* suffix = ZtName(fixed.suffix);
    const std::size_t suffixSize = __strlen(suffix);
    if (nameSize == size + 1 + suffixSize && name[size] == ':' &&
        std::memcmp(name + size + 1, suffix, suffixSize) == 0) {
      return true;
    }
  }
  return false;
}

}  // namespace

int ZtElementWriter::Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix,
                           ZtNameId name) {
  if (type.entryLine) {
    Log(kZtLogTrace, type.entryLine);
  } else if (type.writer) {
    Log(type.family->entryLevel, type.family->entryLine, type.writer);
  }
  if (!element && type.flag) Log(kZtLogState, type.flag->nullLine, m_Scope.marshaller);
  // A caller's list may hold anything: rows are applied to objects of their own type only.
  if (!element || !ZtIsA(*element, type)) return 0;
  if (m_iDepth == kMostDepth) {
    Log(kZtLogError, "<XML Module>: more than %d elements within each other", kMostDepth);
    m_bIncomplete = true;
    return 0;
  }
  ++m_iDepth;
  const int written = WriteNested(*element, type, prefix, name);
  --m_iDepth;
  return written;
}

int ZtElementWriter::WriteNested(XMLElement& element, const ZtElementType& type, e_XmlStrRef prefix,
                                 ZtNameId name) {
  const Prefix scope(*this, prefix == XML_STR_ZT_NULL ? type.prefix : prefix);
  if (type.flag) return WriteFlag(static_cast<zt_empty_element_type&>(element), *type.flag);
  if (type.writeHook) return type.writeHook(*this, element, type);
  if (name.IsNone()) name = type.tag;
  if (type.checksFirst && !HasRequired(element, type)) return 0;
  const bool tagged = !name.IsNone();
  if (tagged && !WriteStartTag(element, type, name)) return 0;
  if (type.selfClosing) return 1;
  const bool written =
      type.contentHook ? type.contentHook(*this, element, type) : WriteChildren(element, type);
  if (written && tagged) End(name);
  return written;
}

int ZtElementWriter::WriteFlag(const zt_empty_element_type& flag, const ZtFlag& how) {
  const char* name = flag.getPresentValue() ? flag.getValue() : nullptr;
  if (!name) {
    Log(kZtLogState, how.absentLine, m_Scope.marshaller);
    return 0;
  }
  char cut[kMostFlagName + 1];
  if (how.mostName < sizeof(cut) && __strlen(name) > how.mostName) {
    std::memcpy(cut, name, how.mostName);
    cut[how.mostName] = '\0';
    name = cut;
  }
  m_Pen.Writer().ztStartElementSelfEnding(name);
  return 1;
}

bool ZtElementWriter::WriteChildren(const XMLElement& element, const ZtElementType& type) {
  bool chosen = false;
  const ZtField* const end = type.end();
  for (const ZtField* at = type.children(); at != end; ++at) {
    const ZtField& field = *at;
    if (field.oneOf) {
      if (chosen || !IsSet(element, field)) continue;
      chosen = true;
    }
    if (!WriteField(element, field)) return false;
  }
  return true;
}

bool ZtElementWriter::HasRequired(const XMLElement& element, const ZtElementType& type) const {
  char buffer[kZtNumberSize];
  for (const ZtField* field = type.begin(); field != type.children(); ++field) {
    if (!field->required || ZtFieldText(element, *field, buffer).text) continue;
    Log(field->lineLevel, field->line);
    return false;
  }
  return true;
}

bool ZtElementWriter::WriteStartTag(const XMLElement& element, const ZtElementType& type,
                                    ZtNameId name) {
  StartTag tag(m_Pen, name);
  char buffer[kZtNumberSize];
  bool awaited = false;
  for (unsigned i = 0; i < type.fixedCount; ++i) {
    const ZtFixedAttribute& fixed = type.fixed[i];
    tag.Add(ZtName(fixed.name), ZtName(fixed.value),
            fixed.suffix == XML_STR_ZT_NULL ? nullptr : ZtName(fixed.suffix));
  }
  const ZtField* const end = type.children();
  for (const ZtField* at = type.begin(); at != end; ++at) {
    const ZtField& field = *at;
    if (field.place == ZtPlace::kOtherAttributes) {
      const ZtAttributeList& others = element.*field.member.attributes;
      awaited = type.awaitsExtras && others.Get() && !others.Head();
      if (!WriteOtherAttributes(others.Head(), &type, tag)) return false;
      continue;
    }
    const ZtPiece text = field.value == ZtValue::kText ? (element.*field.member.text).Piece()
                                                       : ZtFieldText(element, field, buffer);
    if (!text.text) {
      Log(field.lineLevel, field.line);
      if (field.required) return false;
      if (!field.always) continue;
    }
    tag.Add(field.name, text);
  }
  if (!awaited && (!type.staysOpen || !tag.IsEmpty())) tag.Close(type.selfClosing);
  return true;
}

bool ZtElementWriter::Start(ZtNameId name, ZtSingleElementList* attributes) {
  StartTag tag(m_Pen, name);
  if (attributes && !WriteOtherAttributes(attributes->GetPtrToListHead(), nullptr, tag)) {
    return false;
  }
  tag.Close(false);
  return true;
}

// Attributes that no row names, in the order received, except those that the tag has already: the
// first of a name stands. `type` null: it has none yet. False without memory.
bool ZtElementWriter::WriteOtherAttributes(ZtListNode* head, const ZtElementType* type,
                                           StartTag& tag) {
  std::size_t count = 0;
  for (ZtListNode* node = head; node; node = node->next) ++count;
  NameSet names;
  if (!names.Reserve(count)) {
    m_bIncomplete = true;
    return false;
  }
  for (ZtListNode* node = head; node && !names.IsFull(); node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    const char* name = pair ? pair->getName() : nullptr;
    const std::size_t size = name ? NameSize(name) : 0;
    if (size == 0) continue;
    if (type &&
        (ZtFindAttribute(*type, ZtNameId::Of({name, size})) || IsFixed(*type, name, size))) {
      continue;
    }
    if (names.Insert(name, size)) tag.Add(name, pair->getValue(), nullptr);
  }
  return true;
}

int ZtElementWriter::WriteText(const ZtField& field, ZtPiece text) {
  if (field.writer) Log(kZtLogTrace, "<XML Module>: %s", field.writer);
  if (!text.text && !field.always) return 0;
  WriteText(field.name, text);
  return 1;
}

void ZtElementWriter::WriteText(ZtNameId name, ZtPiece text) {
  m_Pen.TextElement(name.Piece(), text);
}

bool ZtElementWriter::WriteField(const XMLElement& element, const ZtField& field) {
  switch (field.place) {
    case ZtPlace::kTextElement: {
      char buffer[kZtNumberSize];
      const ZtPiece text = ZtFieldText(element, field, buffer);
      if (text.text || field.always) WriteText(field, text);
      if (!text.text) Log(field.lineLevel, field.line);
      return text.text || !field.required;
    }
    case ZtPlace::kTextElements:
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        const auto* text = zt_string::From(static_cast<XMLElement*>(node->data));
        if (text && text->getValue()) WriteText(field.name, text->getValue());
      }
      return true;
    case ZtPlace::kOwnText: {
      char buffer[kZtNumberSize];
      m_Pen.Text(ZtFieldText(element, field, buffer));
      return true;
    }
    case ZtPlace::kOwnWords: {
      const char* blank = "";
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        const auto* word = zt_string::From(static_cast<XMLElement*>(node->data));
        if (!word || !word->getValue()) continue;
        m_Pen.Writer().ztXmlSetData(blank);
        m_Pen.Writer().ztXmlSetData(word->getValue());
        blank = " ";
      }
      return true;
    }
    case ZtPlace::kChild: {
      XMLElement* child = (element.*field.member.child).Get();
      return !child || WriteChild(child, 0, field, {field.detail.type, XML_STR_ZT_NULL});
    }
    case ZtPlace::kChildren: {
      int index = 0;
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        auto* child = static_cast<XMLElement*>(node->data);
        if (child && !WriteChild(child, index, field, {field.detail.type, XML_STR_ZT_NULL})) {
          return false;
        }
        ++index;
      }
      return true;
    }
    case ZtPlace::kOtherChildren:
      return WriteOthers(element, field);
    default:
      return true;
  }
}

// Whether the parent may go on. The child stands under its row's name, if that has one.
bool ZtElementWriter::WriteChild(XMLElement* child, int index, const ZtField& field,
                                 const ZtWritable& as) {
  if (Write(child, *as.type, as.prefix, field.name) != 0) return true;
  if (field.line && field.HasName()) {
    Log(field.lineLevel, field.line, index);
  } else if (!field.lenient && as.type->writer) {
    Log(kZtLogTrace, as.type->family->childFailed, as.type->writer);
  }
  return field.lenient;
}

bool ZtElementWriter::WriteOthers(const XMLElement& element, const ZtField& field) {
  const ZtChildList& others = element.*field.member.children;
  if (!field.detail.writables) {
    if (others.Get()) Log(field.lineLevel, field.line);
    return true;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    auto* child = static_cast<XMLElement*>(node->data);
    const char* className = child ? child->ClassName() : nullptr;
    if (!className) continue;
    const ZtWritable* writable = FindClass(field.detail.writables, className);
    if (writable->type) {
      if (!WriteChild(child, 0, field, *writable)) return false;
    } else {
      Log(field.lineLevel, field.line, className);
    }
  }
  return true;
}
