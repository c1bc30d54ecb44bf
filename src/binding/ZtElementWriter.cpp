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

// Whether `name` is one of the declarations that the element's start tag carries anyway.
bool IsDeclared(const ZtElementType& type, const char* name) {
  const std::size_t size = __strlen(ZtName(XML_STR_XMLNS));
  if (__strncmp(name, ZtName(XML_STR_XMLNS), size) != 0) return false;
  for (unsigned i = 0; i < type.namespaceCount; ++i) {
    const e_XmlStrRef prefix = type.namespaces[i].prefix;
    if (prefix == XML_STR_ZT_NULL
            ? !name[size]
            : name[size] == ':' && __strcmp(name + size + 1, ZtName(prefix)) == 0) {
      return true;
    }
  }
  return false;
}

}  // namespace

int ZtElementWriter::Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix) {
  ZtLog(kZtLogTrace, type.family->source)("<XML Module>: %s", type.writer);
  // A caller's list may hold anything: rows are applied to objects of their own type only.
  const char* className = element ? element->ClassName() : nullptr;
  if (!className || (className != type.className && __strcmp(className, type.className) != 0)) {
    return 0;
  }
  const Prefix scope(*this, prefix);
  if (type.absentFlag) return WriteFlag(static_cast<zt_empty_element_type&>(*element), type);
  return WriteContent(*element, type);
}

int ZtElementWriter::WriteFlag(const zt_empty_element_type& flag, const ZtElementType& type) {
  if (!flag.getPresentValue() || !flag.getValue()) {
    ZtLog(kZtLogState, type.family->source)(type.absentFlag);
    return 0;
  }
  m_Writer.ztStartElementSelfEnding(flag.getValue());
  return 1;
}

int ZtElementWriter::WriteContent(XMLElement& element, const ZtElementType& type) {
  if (!WriteStartTag(element, type)) return 0;
  if (type.selfClosing) return 1;
  for (const ZtField& field : type) {
    if (!field.IsAttribute() && !WriteField(element, type, field)) return 0;
  }
  m_Writer.ztEndXmlElement(ZtName(type.tag));
  return 1;
}

bool ZtElementWriter::WriteStartTag(const XMLElement& element, const ZtElementType& type) {
  StartTag tag(m_Writer, ZtName(type.tag));
  for (unsigned i = 0; i < type.namespaceCount; ++i) {
    const ZtNamespace& declared = type.namespaces[i];
    tag.Add(ZtName(XML_STR_XMLNS), ZtName(declared.uri),
            declared.prefix == XML_STR_ZT_NULL ? nullptr : ZtName(declared.prefix));
  }
  for (const ZtField& field : type) {
    if (field.place == ZtPlace::kOtherAttributes) WriteOtherAttributes(element, type, field, tag);
    if (field.place != ZtPlace::kAttribute) continue;
    const char* text = ZtFieldText(element, field, tag.Buffer());
    if (!text && field.required) {
      ZtLog(field.lineLevel, type.family->source)(field.line);
      return false;
    }
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
    if (!name || !*name || ZtFindAttribute(type, name) || IsDeclared(type, name)) continue;
    tag.Add(name, pair->getValue());
  }
}

bool ZtElementWriter::WriteField(const XMLElement& element, const ZtElementType& type,
                                 const ZtField& field) {
  switch (field.place) {
    case ZtPlace::kTextElement: {
      char buffer[kZtNumberSize];
      const char* text = ZtFieldText(element, field, buffer);
      if (!text) return true;
      m_Writer.ztStartElement(ZtName(field.name), 0);
      m_Writer.ztXmlSetData(text);
      m_Writer.ztEndXmlElement(ZtName(field.name));
      return true;
    }
    case ZtPlace::kOwnText:
      m_Writer.ztXmlSetData((element.*field.member.text).Get());
      return true;
    case ZtPlace::kChild: {
      XMLElement* child = (element.*field.member.child).Get();
      return !child || WriteChild(child, type, field, *field.detail.type, XML_STR_ZT_NULL);
    }
    case ZtPlace::kChildren:
      for (ZtListNode* node = (element.*field.member.children).Head(); node; node = node->next) {
        auto* child = static_cast<XMLElement*>(node->data);
        if (child && !WriteChild(child, type, field, *field.detail.type, XML_STR_ZT_NULL)) {
          return false;
        }
      }
      return true;
    case ZtPlace::kOtherChildren:
      return WriteOthers(element, type, field);
    default:
      return true;
  }
}

bool ZtElementWriter::WriteChild(XMLElement* child, const ZtElementType& type, const ZtField& field,
                                 const ZtElementType& childType, e_XmlStrRef prefix) {
  if (Write(child, childType, prefix) != 0 || field.lenient) return true;
  ZtLog(kZtLogTrace, type.family->source)(type.family->childFailed, childType.writer);
  return false;
}

bool ZtElementWriter::WriteOthers(const XMLElement& element, const ZtElementType& type,
                                  const ZtField& field) {
  const ZtChildList& others = element.*field.member.children;
  if (!field.detail.writables) {
    if (others.Get() && field.line) ZtLog(kZtLogTrace, type.family->source)(field.line);
    return true;
  }
  for (ZtListNode* node = others.Head(); node; node = node->next) {
    auto* child = static_cast<XMLElement*>(node->data);
    const char* className = child ? child->ClassName() : nullptr;
    if (!className) continue;
    const ZtWritable* writable = field.detail.writables;
    while (writable->type && __strcmp(writable->type->className, className) != 0) ++writable;
    if (writable->type) {
      if (!WriteChild(child, type, field, *writable->type, writable->prefix)) return false;
    } else if (field.line) {
      ZtLog(kZtLogTrace, type.family->source)(field.line, className);
    }
  }
  return true;
}
