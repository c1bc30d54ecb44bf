#include "ztxml/ZtDocument.h"

#include <climits>
#include <utility>

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"
#include "binding/ZtPath.h"
#include "binding/ZtStandard.h"
#include "binding/ZtStandardWriter.h"
#include "drivers/ZtExplain.h"
#include "ztxml/XMLFile.h"
#include "ztxml/XmlDecoder.h"
#include "ztxml/ZtNamespaces.h"

XMLContext* ZtNewContext(const ZtDocument& document) {
  return document.NewContext().Create("src/XMLFactory");
}

// ---- Context ------------------------------------------------------------------------------------

XMLMarshaller* ZtContext::createMarshaller() {
  ZtMarshaller* worker = Document().NewMarshaller().Create(Document().source);
  if (worker) worker->m_pContext = this;
  return Keep(static_cast<XMLMarshaller*>(worker));
}

XMLUnMarshaller* ZtContext::createUnMarshaller() {
  ZtUnMarshaller* worker = Document().NewUnMarshaller().Create(Document().source);
  if (worker) worker->m_pContext = this;
  return Keep(static_cast<XMLUnMarshaller*>(worker));
}

XMLObjectFactory* ZtContext::createBinderFactory() {
  ZtFactory* worker = Document().NewBinderFactory().Create(Document().source);
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

// Says that nothing has failed, or that there is nothing to read.
bool ZtUnMarshaller::Begin(const void* text) const {
  if (m_pError && text) *m_pError = ztxml::Error();
  if (m_pError && !text) {
    ZtExplain(*m_pError, ztxml::Code::kRefused, ztxml::Stage::kNone, "there is no text");
  }
  return text != nullptr;
}

XMLElement* ZtUnMarshaller::UnMarshall(const char* xml) {
  if (!Begin(xml)) return nullptr;
  LogInput(Document(), Document().lines->textInput, xml);
  if (IsStandard()) return ReadStandard(xml);
  return ReadExact(xml, "<XML Module>: StrDup failed in %s::UnMarshall");
}

XMLElement* ZtUnMarshaller::UnMarshall(XMLFile* file) {
  const char* text = file ? file->Read() : nullptr;
  if (!Begin(text)) {
    if (m_pError && file) {
      ZtExplain(*m_pError, ztxml::Code::kRefused, ztxml::Stage::kNone, "the file cannot be read");
    }
    return nullptr;
  }
  LogInput(Document(), Document().lines->fileInput, text);
  return IsStandard() ? ReadStandard({text, file->Size()}) : ReadExact(text, nullptr);
}

XMLElement* ZtUnMarshaller::UnMarshall(const char* text, std::size_t size) {
  if (!Begin(text)) return nullptr;
  if (IsStandard()) return ReadStandard({text, size});
  if (!HasNul({text, size})) {
    return ReadExact({text, size}, "<XML Module>: StrDup failed in %s::UnMarshall");
  }
  ZtLog(kZtLogError, Document().source)("<XML Module>: %s::UnMarshall: there is a NUL in the text",
                                        Document().unMarshaller);
  return nullptr;
}

// Says that there is one, which the exact profile does not take.
bool ZtUnMarshaller::HasNul(ZtPiece text) const {
  const void* const nul = std::memchr(text.text, '\0', text.size);
  if (!nul) return false;
  if (m_pError) {
    const auto at = static_cast<std::size_t>(static_cast<const char*>(nul) - text.text);
    ZtExplainNul(*m_pError, {Document(), text, {}}, at);
  }
  return true;
}

XMLElement* ZtUnMarshaller::Ended(XMLElement* root) const {
  if (!root && m_pError && m_pError->code == ztxml::Code::kNone) {
    ZtExplainNoMemory(*m_pError, ztxml::Stage::kBinding);
  }
  return root;
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
    return Ended(nullptr);
  }
  const bool done = Parse(arena, xml, text, root);
  const char* result = done ? document.lines->readDone : document.lines->readFailed;
  if (result) ZtLog(kZtLogTrace, document.source)(result);
  return root;
}

XMLObject* ZtUnMarshaller::NamespaceBinder() const {
  return m_pContext ? m_pContext->namespaceBinder() : nullptr;
}

bool ZtUnMarshaller::Parse(const char* xml, XMLElement*& root) const {
  ZtArena arena;
  const ZtPiece whole = xml;
  char* text = arena.Keep(whole.text, whole.size);
  root = nullptr;
  return text && Parse(arena, whole, text, root);
}

namespace {
// Whether a parser and a decoder that have read a document may read the next one: the decoder knows
// nothing but the document that it reads, and no memory log shows that they are not released.
bool MayKeep(const ZtDocument& document, const XmlDecoder& parser) {
  constexpr auto kPlain = ZtDecoderMaker::Of<ZtDecoderFor<ZtSchemaDecoder>>();
  return document.NewDecoder().construct == kPlain.construct && parser.IsLean() &&
         ZtRecordsNothing();
}
}  // namespace

void ZtUnMarshaller::Close() {
  ZtRelease(m_pDecoder);
  ZtRelease(m_pParser);
}

// Reads `text`, a copy of `xml` that `arena` keeps. A caller gets a whole tree or nothing: what a
// failed parse has built is freed.
bool ZtUnMarshaller::Parse(ZtArena& arena, ZtPiece xml, char* text, XMLElement*& root) const {
  const ZtDocument& document = Document();
  const bool kept = m_pParser && ZtRecordsNothing();
  XmlDecoder* parser = kept ? std::exchange(m_pParser, nullptr) : nullptr;
  ZtSchemaDecoder* decoder = kept ? std::exchange(m_pDecoder, nullptr) : nullptr;
  if (kept) {
    parser->InitXmlDecoder();
  } else {
    parser = ZtCreate<XmlDecoder>(document.source);
    decoder = document.NewDecoder().Create(document.source, document);
  }
  bool parsed = false;
  if (parser && decoder && xml.size <= INT_MAX) {
    if (XMLObject* binder = NamespaceBinder()) decoder->SetNameSpaceBinderInfo(binder);
    decoder->Use(arena);
    parsed = parser->DecodeWhole(text, xml.size, *decoder) == ZT_XML_SUCCESS;
  }
  const bool done = parsed && !decoder->Failed();
  if (done && !m_pParser && MayKeep(document, *parser)) {
    if (XMLObject* const whole = decoder->Finish()) {
      m_pParser = parser;
      m_pDecoder = decoder;
      root = whole;
      return true;
    }
  }
  if (decoder) root = static_cast<XMLObject*>(decoder->GetSessionData());
  if (m_pError && (!done || !root)) {
    if (!parser || !decoder) {
      Ended(nullptr);
    } else {
      Explain(xml, text, parsed ? nullptr : parser, *decoder);
    }
  }
  ZtRelease(decoder);
  ZtRelease(parser);
  if (!done) {
    ZtRelease(root);
    root = nullptr;
  }
  return done;
}

// `text`, which was cut up, becomes what `xml` is. `parser` null: it was content.
void ZtUnMarshaller::Explain(ZtPiece xml, char* text, const XmlDecoder* parser,
                             const ZtSchemaDecoder& decoder) const {
  if (xml.size > INT_MAX) {
    return ZtExplain(*m_pError, ztxml::Code::kTooLong, ztxml::Stage::kParsing,
                     "the exact profile reads no more than 2 GiB");
  }
  if (xml.size) std::memcpy(text, xml.text, xml.size);
  const ZtFailedText failed = {Document(), xml, {}, {text, xml.size}, false};
  if (const char* const name = decoder.RefusedName()) {
    ZtExplainSlash(*m_pError, failed, static_cast<std::size_t>(name - text));
  } else if (!decoder.Failed() && parser) {
    ZtExplainParser(*m_pError, failed, parser->FailedAt());
  } else if (!decoder.Failed() && Document().roots.size()) {
    ZtExplainRoot(*m_pError, failed);
  } else {
    Ended(nullptr);
  }
}

// ---- Marshaller ---------------------------------------------------------------------------------

ZtMarshaller::ZtMarshaller()
    : m_pXmlStrRef(zt_xml_common_array_definition::CreateArrayInstance()) {}

void ZtMarshaller::Close() {
  __free(m_pXml);
  if (m_pXmlStrRef) zt_xml_common_array_definition::ReleaseArrayInstance();
}

XMLMarshaller* ZtMarshaller::Identity() { return this; }

char* ZtMarshaller::Marshall(XMLElement* root) {
  if (m_pError) *m_pError = ztxml::Error();
  char* const text = !IsStandard() ? MarshallExact(root) : root ? MarshallStandard(*root) : nullptr;
  if (m_pError && !root) {
    ZtExplain(*m_pError, ztxml::Code::kRefused, ztxml::Stage::kWriting, "there is no tree");
  }
  return text;
}

char* ZtMarshaller::MarshallExact(XMLElement* root) {
  const ZtDocument& document = Document();
  if (!root) {
    if (document.lines->nullRoot) ZtLog(kZtLogTrace, document.source)(document.lines->nullRoot);
    return nullptr;
  }
  const char* className = root->ClassName();
  if (!className && document.lines->nullClass) {
    ZtLog(kZtLogTrace, document.source)(document.lines->nullClass);
    if (m_pError) {
      ZtExplain(*m_pError, ztxml::Code::kWrongRoot, ztxml::Stage::kWriting, kZtNoRoot);
    }
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
  ZtPen pen(m_XmlDocGenerator);
  pen.Begin(m_iRoom);
  if (document.declaration) pen.Header();
  const ZtLog trace(kZtLogTrace, document.source);
  const ZtRoot* known = ZtRootOf(document, className);
  const ZtElementType* type = known ? known->type : ZtFragmentOf(document, className);
  const char* failedAs = known && known->failedAs ? known->failedAs : document.failedAs;
  if (!type) {
    trace("<XML Module>: %s XML Failed!", document.failedAs);
    if (m_pError) {
      ZtExplain(*m_pError, ztxml::Code::kWrongRoot, ztxml::Stage::kWriting, kZtNoRoot);
    }
  } else {
    if (document.lines->rootChosen) trace(document.lines->rootChosen);
    const int written = Write(root, *type);
    m_bCutShort = m_bCutShort || m_XmlDocGenerator.outOfMemory();
    if (written && !m_bCutShort) {
      m_iRoom = ZtRoomAfter(pen.Size());
      m_pXml = pen.Take(document.dropsFirstNewline);
      m_bCutShort = !m_pXml;
    }
    if (m_pXml) m_pXml = Complete(root, m_pXml);
    if (m_pXml) {
      trace(document.lines->written, document.writtenAs, m_pXml);
    } else {
      trace(document.lines->writeFailed, failedAs, type->writer);
      if (m_pError && m_pError->code == ztxml::Code::kNone) {
        ZtExplainNoMemory(*m_pError, ztxml::Stage::kWriting);
      }
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
  if (written && !writer.IsIncomplete()) return 1;
  if (m_pError && element) Explain(*element, type, writer.Lack());
  return 0;
}

// Why an element was not written.
void ZtMarshaller::Explain(const XMLElement& element, const ZtElementType& type,
                           const ZtLack& lack) const {
  using ztxml::Code;
  ZtPath path;
  const ZtRoot* const root = ZtRootOf(Document(), element.ClassName());
  const ZtNameId name = root ? root->name : type.tag;
  path.Push("/", name.IsNone() ? ZtPiece(element.ElementName()) : name.Piece());
  path.PushObject(element, type, lack.element, lack.field);
  switch (lack.why) {
    case ZtLack::Why::kNothing:
      return ZtExplainNoMemory(*m_pError, ztxml::Stage::kWriting);
    case ZtLack::Why::kValue:
      return ZtExplainMissing(*m_pError, ztxml::Stage::kWriting, path.Text());
    case ZtLack::Why::kClass:
      return ZtExplain(*m_pError, Code::kRefused, ztxml::Stage::kWriting,
                       "the object is of another class than belongs here", path.Text());
    case ZtLack::Why::kDepth:
      return ZtExplain(*m_pError, Code::kRefused, ztxml::Stage::kWriting,
                       "there are too many elements within each other", path.Text());
  }
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
