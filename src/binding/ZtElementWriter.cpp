#include "binding/ZtElementWriter.h"

#include "base/ZtLog.h"

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
    m_Owner.m_Writer.ztSetXmlNamespace(prefix == XML_STR_ZT_NULL ? nullptr : ZtName(prefix));
  }

  ZtElementWriter& m_Owner;
  e_XmlStrRef m_Outer;
};

// A start tag of which the last attribute written closes the tag: each attribute waits until it is
// known whether another follows. A tag that is never closed stays open in the text.
class ZtElementWriter::StartTag {
 public:
  StartTag(ZtXMLDocGenerator& writer, const char* element)
      : m_Writer(writer), m_pElement(element) {}
  ~StartTag() {
    Settle(0, 0);
    Open();
  }
  StartTag(const StartTag&) = delete;
  StartTag& operator=(const StartTag&) = delete;

  // The texts are borrowed until the next attribute or the end of the tag.
  void Add(const char* name, const char* value, const char* suffix = nullptr) {
    Settle(0, 0);
    m_pName = name;
    m_pValue = value;
    m_pSuffix = suffix;
    m_iBuffer ^= 1;  // the value may stand in the buffer last given out
  }
  char* Buffer() { return m_Buffers[m_iBuffer]; }
  void Close(bool selfEnd) {
    if (m_pName) {
      Settle(selfEnd ? 1 : 0, 1);
    } else if (selfEnd) {
      m_Writer.ztStartElementSelfEnding(m_pElement);
    } else {
      m_Writer.ztStartElement(m_pElement, 0);
    }
    m_bStarted = true;
  }

 private:
  void Open() {
    if (m_bStarted) return;
    m_bStarted = true;
    m_Writer.ztStartElement(m_pElement, 1);
  }
  void Settle(int selfEnd, int close) {
    if (!m_pName) return;
    Open();
    m_Writer.ztAddNameSpacePrefixToXml(m_pName, m_pValue, m_pSuffix, selfEnd, close);
    m_pName = nullptr;
  }

  ZtXMLDocGenerator& m_Writer;
  const char* m_pElement;
  const char* m_pName = nullptr;
  const char* m_pValue = nullptr;
  const char* m_pSuffix = nullptr;
  char m_Buffers[2][kZtNumberSize];
  int m_iBuffer = 0;
  bool m_bStarted = false;
};

namespace {

// Whether `name` is one of the attributes that the element's start tag carries anyway.
bool IsFixed(const ZtElementType& type, const char* name) {
  for (unsigned i = 0; i < type.fixedCount; ++i) {
    const char* own = ZtName(type.fixed[i].name);
    const std::size_t size = __strlen(own);
    if (__strncmp(name, own, size) != 0) continue;
    const e_XmlStrRef suffix = type.fixed[i].suffix;
    if (suffix == XML_STR_ZT_NULL
            ? !name[size]
            : name[size] == ':' && __strcmp(name + size + 1, ZtName(suffix)) == 0) {
      return true;
    }
  }
  return false;
}

}  // namespace

int ZtElementWriter::Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix,
                           ZtNameId name) {
  if (type.writer) ZtLog(kZtLogTrace, type.family->source)("<XML Module>: %s", type.writer);
  // A caller's list may hold anything: rows are applied to objects of their own type only.
  const char* className = element ? element->ClassName() : nullptr;
  if (!className || (className != type.className && __strcmp(className, type.className) != 0)) {
    return 0;
  }
  const Prefix scope(*this, prefix == XML_STR_ZT_NULL ? type.prefix : prefix);
  if (type.writeHook) return type.writeHook(*this, *element, type);
  if (type.absentFlag) return WriteFlag(static_cast<zt_empty_element_type&>(*element), type);
  return WriteByRows(*element, type, name.IsNone() ? type.tag : name);
}

int ZtElementWriter::WriteFlag(const zt_empty_element_type& flag, const ZtElementType& type) {
  if (!flag.getPresentValue() || !flag.getValue()) {
    ZtLog(kZtLogState, type.family->source)(type.absentFlag);
    return 0;
  }
  m_Writer.ztStartElementSelfEnding(flag.getValue());
  return 1;
}

int ZtElementWriter::WriteByRows(XMLElement& element, const ZtElementType& type, ZtNameId name) {
  if (!WriteStartTag(element, type, name)) return 0;
  if (type.selfClosing) return 1;
  for (const ZtField& field : type) {
    if (!field.IsAttribute() && !WriteField(element, type, field)) return 0;
  }
  m_Writer.ztEndXmlElement(ZtName(name));
  return 1;
}

bool ZtElementWriter::WriteStartTag(const XMLElement& element, const ZtElementType& type,
                                    ZtNameId name) {
  StartTag tag(m_Writer, ZtName(name));
  for (unsigned i = 0; i < type.fixedCount; ++i) {
    const ZtFixedAttribute& fixed = type.fixed[i];
    tag.Add(ZtName(fixed.name), ZtName(fixed.value),
            fixed.suffix == XML_STR_ZT_NULL ? nullptr : ZtName(fixed.suffix));
  }
  for (const ZtField& field : type) {
    if (field.place == ZtPlace::kOtherAttributes) WriteOtherAttributes(element, type, field, tag);
    if (field.place != ZtPlace::kAttribute) continue;
    const char* text = ZtFieldText(element, field, tag.Buffer());
    if (!text && field.line) ZtLog(field.lineLevel, type.family->source)(field.line);
    if (!text && field.required) return false;
    if (text || field.always) tag.Add(ZtName(field.name), text);
  }
  tag.Close(type.selfClosing);
  return true;
}

// Attributes that no row names, in the order received, except those that the tag has already.
void ZtElementWriter::WriteOtherAttributes(const XMLElement& element, const ZtElementType& type,
                                           const ZtField& field, StartTag& tag) {
  for (ZtListNode* node = (element.*field.member.attributes).Head(); node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    const char* name = pair ? pair->getName() : nullptr;
    if (!name || !*name || ZtFindAttribute(type, name) || IsFixed(type, name)) continue;
    tag.Add(name, pair->getValue());
  }
}

void ZtElementWriter::WriteText(ZtNameId name, const char* text) {
  m_Writer.ztStartElement(ZtName(name), 0);
  m_Writer.ztXmlSetData(text);
  m_Writer.ztEndXmlElement(ZtName(name));
}

bool ZtElementWriter::WriteField(const XMLElement& element, const ZtElementType& type,
                                 const ZtField& field) {
  switch (field.place) {
    case ZtPlace::kTextElement: {
      char buffer[kZtNumberSize];
      const char* text = ZtFieldText(element, field, buffer);
      if (text || field.always) WriteText(field.name, text);
      if (!text && field.line) ZtLog(field.lineLevel, type.family->source)(field.line);
      return text || !field.required;
    }
    case ZtPlace::kTextElements:
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        const auto* text = zt_string::From(static_cast<XMLElement*>(node->data));
        if (text && text->getValue()) WriteText(field.name, text->getValue());
      }
      return true;
    case ZtPlace::kOwnText:
      m_Writer.ztXmlSetData((element.*field.member.text).Get());
      return true;
    case ZtPlace::kChild: {
      XMLElement* child = (element.*field.member.child).Get();
      return !child || WriteChild(child, 0, type, field, {field.detail.type, XML_STR_ZT_NULL});
    }
    case ZtPlace::kChildren: {
      int index = 0;
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        auto* child = static_cast<XMLElement*>(node->data);
        if (child && !WriteChild(child, index, type, field, {field.detail.type, XML_STR_ZT_NULL})) {
          return false;
        }
        ++index;
      }
      return true;
    }
    case ZtPlace::kOtherChildren:
      return WriteOthers(element, type, field);
    default:
      return true;
  }
}

// Whether the parent may go on. The child stands under its row's name, if that has one.
bool ZtElementWriter::WriteChild(XMLElement* child, int index, const ZtElementType& type,
                                 const ZtField& field, const ZtWritable& as) {
  if (Write(child, *as.type, as.prefix, field.name) != 0) return true;
  if (field.line && field.HasName()) {
    ZtLog(field.lineLevel, type.family->source)(field.line, index);
  } else if (!field.lenient) {
    ZtLog(kZtLogTrace, type.family->source)(type.family->childFailed, as.type->writer);
  }
  return field.lenient;
}

bool ZtElementWriter::WriteOthers(const XMLElement& element, const ZtElementType& type,
                                  const ZtField& field) {
  const ZtChildList& others = element.*field.member.children;
  const ZtLog note(field.lineLevel, type.family->source);
  if (!field.detail.writables) {
    if (others.Get() && field.line) note(field.line);
    return true;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    auto* child = static_cast<XMLElement*>(node->data);
    const char* className = child ? child->ClassName() : nullptr;
    if (!className) continue;
    const ZtWritable* writable = field.detail.writables;
    while (writable->type && __strcmp(writable->type->className, className) != 0) ++writable;
    if (writable->type) {
      if (!WriteChild(child, 0, type, field, *writable)) return false;
    } else if (field.line) {
      note(field.line, className);
    }
  }
  return true;
}
