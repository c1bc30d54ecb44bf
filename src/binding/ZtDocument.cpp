#include "ZtDocument.h"

#include <climits>

#include "XMLFile.h"
#include "XmlDecoder.h"
#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "binding/ZtElementWriter.h"

// ---- Context ------------------------------------------------------------------------------------

XMLMarshaller* ZtContext::createMarshaller() {
  return Keep(Document().newMarshaller.Create(Document().source));
}

XMLUnMarshaller* ZtContext::createUnMarshaller() {
  return Keep(Document().newUnMarshaller.Create(Document().source));
}

XMLObjectFactory* ZtContext::createBinderFactory() {
  return Keep(Document().newBinderFactory.Create(Document().source));
}

// ---- Unmarshaller -------------------------------------------------------------------------------

namespace {

void LogInput(const ZtDocument& document, const char* format, const char* text) {
  if (format) ZtLog(kZtLogTrace, document.source)(format, text);
}

}  // namespace

XMLElement* ZtUnMarshaller::UnMarshall(const char* xml) {
  if (!xml) return nullptr;
  const ZtDocument& document = Document();
  LogInput(document, document.lines.textInput, xml);
  char* copy = __strdup(xml);
  if (!copy) {
    ZtLog(kZtLogError, document.source)("<XML Module>: StrDup failed in %s::UnMarshall",
                                        document.unMarshaller);
    return nullptr;
  }
  XMLElement* root = Read(copy);
  __free(copy);
  return root;
}

XMLElement* ZtUnMarshaller::UnMarshall(XMLFile* file) {
  const char* text = file ? file->Read() : nullptr;
  if (!text) return nullptr;
  LogInput(Document(), Document().lines.fileInput, text);
  return Read(text);
}

// A caller gets a whole tree or nothing: what a failed parse has built is freed.
XMLElement* ZtUnMarshaller::Read(const char* xml) const {
  const ZtDocument& document = Document();
  const std::size_t size = __strlen(xml);
  XmlDecoder* parser = ZtCreate<XmlDecoder>(document.source);
  ZtSchemaDecoder* decoder = document.newDecoder.Create(document.source);
  XMLElement* root = nullptr;
  bool done = false;
  if (parser && decoder && size <= INT_MAX) {
    parser->SetSchema(decoder);
    // The parser copies what it is given.
    done = parser->Decode(const_cast<char*>(xml), static_cast<int>(size)) == ZT_XML_SUCCESS &&
           !decoder->Failed();
  }
  if (decoder) root = static_cast<XMLObject*>(decoder->GetSessionData());
  const char* result = done ? document.lines.readDone : document.lines.readFailed;
  if (result) ZtLog(kZtLogTrace, document.source)(result);
  ZtRelease(decoder);
  ZtRelease(parser);
  if (!done) {
    ZtRelease(root);
    root = nullptr;
  }
  return root;
}

// ---- Marshaller ---------------------------------------------------------------------------------

ZtMarshaller::ZtMarshaller()
    : m_pXmlStrRef(zt_xml_common_array_definition::CreateArrayInstance()) {}

ZtMarshaller::~ZtMarshaller() {
  __free(m_pXml);
  if (m_pXmlStrRef) zt_xml_common_array_definition::ReleaseArrayInstance();
}

XMLMarshaller* ZtMarshaller::Identity() { return this; }

char* ZtMarshaller::Marshall(XMLElement* root) {
  const ZtDocument& document = Document();
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
  m_XmlDocGenerator.ztInitXmlDoc();
  if (document.declaration)
    m_XmlDocGenerator.ztAddHeader(ZtName(XML_STR_1_0), ZtName(XML_STR_UTF_8));
  const ZtLog trace(kZtLogTrace, document.source);
  const ZtElementType* const* type = document.writables;
  while (*type && (!className || __strcmp((*type)->className, className) != 0)) ++type;
  if (!*type) {
    trace("<XML Module>: %s XML Failed!", document.marshaller);
  } else {
    if (document.lines.rootChosen) trace(document.lines.rootChosen);
    const int written = Write(root, **type);
    const char* text = m_XmlDocGenerator.ztGetXmlDoc();
    if (written && text && !m_XmlDocGenerator.outOfMemory()) {
      m_pXml = __strdup(text + (document.dropsFirstNewline && *text == '\n'));
    }
    if (m_pXml) {
      trace(document.lines.written, document.marshaller, m_pXml);
    } else {
      trace(document.lines.writeFailed, document.marshaller, (*type)->writer);
    }
  }
  m_XmlDocGenerator.ztDeInitXmlDoc();
  return m_pXml;
}

int ZtMarshaller::Write(XMLElement* element, const ZtElementType& type, e_XmlStrRef prefix) {
  return ZtElementWriter(m_XmlDocGenerator).Write(element, type, prefix);
}
