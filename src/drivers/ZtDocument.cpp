#include "ztxml/ZtDocument.h"

#include <climits>

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"
#include "binding/ZtStandard.h"
#include "ztxml/XMLFile.h"
#include "ztxml/XmlDecoder.h"
#include "ztxml/ZtNamespaces.h"

XMLContext* ZtNewContext(const ZtDocument& document) {
  return document.newContext.Create("src/XMLFactory");
}

// ---- Context ------------------------------------------------------------------------------------

XMLMarshaller* ZtContext::createMarshaller() {
  ZtMarshaller* worker = Document().newMarshaller.Create(Document().source);
  if (worker) worker->m_pContext = this;
  return Keep(static_cast<XMLMarshaller*>(worker));
}

XMLUnMarshaller* ZtContext::createUnMarshaller() {
  ZtUnMarshaller* worker = Document().newUnMarshaller.Create(Document().source);
  if (worker) worker->m_pContext = this;
  return Keep(static_cast<XMLUnMarshaller*>(worker));
}

XMLObjectFactory* ZtContext::createBinderFactory() {
  ZtFactory* worker = Document().newBinderFactory.Create(Document().source);
  if (worker) worker->m_bStandard = profile() == XML_PROFILE_STANDARD;
  return Keep(static_cast<XMLObjectFactory*>(worker));
}

XMLObject* ZtContext::namespaceBinder() const { return nullptr; }

// ---- Factory ------------------------------------------------------------------------------------

XMLObject* ZtFactory::CreateRootElement() {
  return static_cast<XMLObject*>(Make(*Document().roots.begin()->type));
}

XMLElement* ZtFactory::Make(const ZtElementType& type) const {
  XMLElement* object = type.Create(Document().source);
  if (object && m_bStandard) ZtSetDefaults(*object, type);
  return object;
}

// ---- Unmarshaller -------------------------------------------------------------------------------

namespace {

void LogInput(const ZtDocument& document, const char* format, const char* text) {
  if (format) ZtLog(kZtLogTrace, document.source)(format, document.unMarshaller, text);
}

}  // namespace

XMLElement* ZtUnMarshaller::UnMarshall(const char* xml) {
  if (!xml) return nullptr;
  LogInput(Document(), Document().lines.textInput, xml);
  if (IsStandard()) return ReadStandard(xml, true);
  return ReadExact(xml, "<XML Module>: StrDup failed in %s::UnMarshall");
}

XMLElement* ZtUnMarshaller::UnMarshall(XMLFile* file) {
  const char* text = file ? file->Read() : nullptr;
  if (!text) return nullptr;
  LogInput(Document(), Document().lines.fileInput, text);
  return IsStandard() ? ReadStandard({text, file->Size()}, true) : ReadExact(text, nullptr);
}

XMLElement* ZtUnMarshaller::UnMarshall(const char* text, std::size_t size) {
  if (!text) return nullptr;
  if (IsStandard()) return ReadStandard({text, size}, true);
  if (!std::memchr(text, '\0', size)) {
    return ReadExact({text, size}, "<XML Module>: StrDup failed in %s::UnMarshall");
  }
  ZtLog(kZtLogError, Document().source)("<XML Module>: %s::UnMarshall: there is a NUL in the text",
                                        Document().unMarshaller);
  return nullptr;
}

// `noMemory` is the line of a text that cannot be copied, null for none.
XMLElement* ZtUnMarshaller::ReadExact(ZtPiece xml, const char* noMemory) const {
  const ZtDocument& document = Document();
  XMLElement* root = nullptr;
  ZtArena arena;
  TellLosses(xml);
  char* text = arena.Keep(xml.text, xml.size);
  if (!text) {
    if (noMemory) ZtLog(kZtLogError, document.source)(noMemory, document.unMarshaller);
    return nullptr;
  }
  const bool done = Parse(arena, text, xml.size, root);
  const char* result = done ? document.lines.readDone : document.lines.readFailed;
  if (result) ZtLog(kZtLogTrace, document.source)(result);
  return root;
}

XMLObject* ZtUnMarshaller::NamespaceBinder() const {
  return m_pContext ? m_pContext->namespaceBinder() : nullptr;
}

bool ZtUnMarshaller::Parse(const char* xml, XMLElement*& root) const {
  ZtArena arena;
  const std::size_t size = __strlen(xml);
  char* text = arena.Keep(xml, size);
  root = nullptr;
  return text && Parse(arena, text, size, root);
}

// Reads a copy that `arena` keeps. A caller gets a whole tree or nothing: what a failed parse has
// built is freed.
bool ZtUnMarshaller::Parse(ZtArena& arena, char* text, std::size_t size, XMLElement*& root) const {
  const ZtDocument& document = Document();
  XmlDecoder* parser = ZtCreate<XmlDecoder>(document.source);
  ZtSchemaDecoder* decoder = document.newDecoder.Create(document.source);
  bool done = false;
  if (parser && decoder && size <= INT_MAX) {
    if (XMLObject* binder = NamespaceBinder()) decoder->SetNameSpaceBinderInfo(binder);
    decoder->Use(arena);
    done = parser->DecodeWhole(text, size, *decoder) == ZT_XML_SUCCESS && !decoder->Failed();
  }
  if (decoder) root = static_cast<XMLObject*>(decoder->GetSessionData());
  ZtRelease(decoder);
  ZtRelease(parser);
  if (!done) {
    ZtRelease(root);
    root = nullptr;
  }
  return done;
}

// ---- Marshaller ---------------------------------------------------------------------------------

namespace {

// A copy of the document, with a line break at its beginning dropped.
char* CopyOf(ZtPiece text, bool dropsFirstNewline) {
  const std::size_t dropped = dropsFirstNewline && text.size && *text.text == '\n' ? 1 : 0;
  auto* copy = text.text ? static_cast<char*>(__malloc(text.size - dropped + 1)) : nullptr;
  if (copy) std::memcpy(copy, text.text + dropped, text.size - dropped + 1);
  return copy;
}

}  // namespace

ZtMarshaller::ZtMarshaller()
    : m_pXmlStrRef(zt_xml_common_array_definition::CreateArrayInstance()) {}

ZtMarshaller::~ZtMarshaller() {
  __free(m_pXml);
  if (m_pXmlStrRef) zt_xml_common_array_definition::ReleaseArrayInstance();
}

XMLMarshaller* ZtMarshaller::Identity() { return this; }

char* ZtMarshaller::Marshall(XMLElement* root) {
  const ZtDocument& document = Document();
  if (IsStandard()) return root ? MarshallStandard(*root) : nullptr;
  if (!root) {
    if (document.lines.nullRoot) ZtLog(kZtLogTrace, document.source)(document.lines.nullRoot);
    return nullptr;
  }
  const char* className = root->ClassName();
  if (!className && document.lines.nullClass) {
    ZtLog(kZtLogTrace, document.source)(document.lines.nullClass);
    return nullptr;
  }
  const ZtLog state(kZtLogState, document.source);
  state("<XML Module>: %s :: Marshall", document.marshaller);
  if (m_pXml) {
    state("<XML Module>: %s :: Marshall: Deleting %s", document.marshaller, document.textField);
    __free(m_pXml);
    m_pXml = nullptr;
  }
  m_bCutShort = false;
  m_XmlDocGenerator.ztInitXmlDoc();
  if (document.declaration)
    m_XmlDocGenerator.ztAddHeader(ZtName(XML_STR_1_0), ZtName(XML_STR_UTF_8));
  const ZtLog trace(kZtLogTrace, document.source);
  const ZtRoot* known = ZtRootOf(document, className);
  const ZtElementType* type = known ? known->type : ZtFragmentOf(document, className);
  const char* failedAs = known && known->failedAs ? known->failedAs : document.failedAs;
  if (!type) {
    trace("<XML Module>: %s XML Failed!", document.failedAs);
  } else {
    if (document.lines.rootChosen) trace(document.lines.rootChosen);
    const int written = Write(root, *type);
    m_bCutShort = m_bCutShort || m_XmlDocGenerator.outOfMemory();
    if (written && !m_bCutShort) {
      m_pXml = CopyOf(ZtPen(m_XmlDocGenerator).Document(), document.dropsFirstNewline);
      m_bCutShort = !m_pXml;
    }
    if (m_pXml) m_pXml = Complete(root, m_pXml);
    if (m_pXml) {
      trace(document.lines.written, document.writtenAs, m_pXml);
    } else {
      trace(document.lines.writeFailed, failedAs, type->writer);
    }
  }
  m_XmlDocGenerator.ztDeInitXmlDoc();
  return m_pXml;
}

int ZtMarshaller::Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix,
                        e_XmlStrRef name) {
  const ZtNamespaceBindings* bindings = nullptr;
  if (!UseNamespaces(bindings)) {
    m_bCutShort = true;
    return 0;
  }
  const ZtWriterScope scope = {Document().source, Document().marshaller, bindings};
  ZtElementWriter writer(m_XmlDocGenerator, scope);
  const int written = writer.Write(element, type, prefix, name);
  m_bCutShort = m_bCutShort || writer.IsIncomplete();
  return written && !writer.IsIncomplete();
}

int ZtMarshaller::WriteText(const ZtElementType& type, e_XmlStrRef name, const char* text) {
  return Writer().WriteText(*ZtFindChild(type, name), text);
}

ZtElementWriter ZtMarshaller::Writer() {
  return {m_XmlDocGenerator, {Document().source, Document().marshaller}};
}

bool ZtMarshaller::UseNamespaces(const ZtNamespaceBindings*&) { return true; }

char* ZtMarshaller::Complete(XMLElement*, char* text) { return text; }

XMLObject* ZtMarshaller::NamespaceBinder() const {
  return m_pContext ? m_pContext->namespaceBinder() : nullptr;
}
