#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "text/TagScanner.h"

namespace {

constexpr char kSource[] = "src/XMLSchemaNameSpaceRetrieval";
constexpr char kDecoderSource[] = "src/SchemaNameSpaceRetrieval";
constexpr int kRootLine = 14;  // where the memory log's readers know the root from
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

}  // namespace

const ZtElementType zt_schema_namespace_retrieval::kType = {
    ZtTypeOf<zt_schema_namespace_retrieval>("zt_schema_namespace_retrieval",
                                            "schema_namespace_retrieval", kFamily)
        .Root()};

// Intended: any attribute whose name begins with "xmlns" declares a namespace for callers:
// "xmlnsfoo", which has no colon, the default one.
int zt_schema_namespace_retrieval::ProcessUnMarshallAttribute(char* name, char* value,
                                                              XMLAttribute*) {
  const char* declares = ZtName(XML_STR_XMLNS);
  if (!name || __strncmp(name, declares, __strlen(declares)) != 0) return 1;
  if (!getNameSpaceInfo()) {
    auto* list = ZtCreate<ZtSingleElementList>(kSource);
    if (!list) return 0;
    setNameSpaceInfo(list);
  }
  const char* colon = __strchr(name, ':');
  zt_AttributeValuePair* pair = ZtMakePair(kSource, colon ? colon + 1 : nullptr, value);
  if (!pair) {
    ZtLog(kZtLogState, kSource)(
        "<XML Module>: zt_schema_namespace_retrieval::ProcessUnMarshallAttribute: cannot "
        "allocate memory to pXMLNSValuePair ");
    return 0;
  }
  if (m_NameSpaceInfo.Add(pair)) return 1;
  ZtRelease(pair);
  return 0;
}

zt_schema_namespace_retrieval* zt_schema_namespace_retrieval::From(XMLObject* object) {
  return ZtAs<zt_schema_namespace_retrieval>(object);
}

// Intended: a null list given to setNameSpaceInfo leaves the list as it is, where other setters
// clear theirs; callers keep what was retrieved.
int zt_schema_namespace_retrieval::setNameSpaceInfo(ZtSingleElementList* list) {
  ZtLog(kZtLogState, kSource)("<XML Module>: zt_schema_namespace_retrieval::setNameSpaceInfo");
  return list ? m_NameSpaceInfo.Set(list) : 1;
}

ZtListOf<zt_AttributeValuePair>* zt_schema_namespace_retrieval::getNameSpaceInfo() {
  ZtLog(kZtLogState, kSource)("<XML Module>: zt_schema_namespace_retrieval::getNameSpaceInfo");
  return m_NameSpaceInfo;
}

XMLSchemaNamespaceRetrievalDecoder::XMLSchemaNamespaceRetrievalDecoder()
    : ZtSchemaDecoder(SchemaNamespaceRetrievalContext::kDocument) {
  m_pRoot = ZtCreate<zt_schema_namespace_retrieval>(kDecoderSource, kRootLine);
  if (!m_pRoot) m_bFailed = true;
}

int XMLSchemaNamespaceRetrievalDecoder::ProcessElement(char* name, char*) {
  return name && !RefusesStart(name) ? 0 : -1;
}

int XMLSchemaNamespaceRetrievalDecoder::ProcessAttribute(char* element, char* name, char* value) {
  if (!element || !name) return -1;
  if (!m_pRoot || m_bFailed) return 0;
  // What does not begin with "xmlns" is accepted and ignored; the only refusal is a lack of memory.
  if (!m_pRoot->ProcessUnMarshallAttribute(name, value, nullptr)) m_bFailed = true;
  return 0;
}

// Attributes are all that counts here.
void XMLSchemaNamespaceRetrievalDecoder::Start(ScannedTag& tag) {
  if (tag.colon) RefusesStart(tag.name);
}

void XMLSchemaNamespaceRetrievalDecoder::Attributes(ScannedTag& tag) {
  for (ScannedAttribute& attribute : tag) {
    tag.Cut(attribute);
    ProcessAttribute(tag.name, attribute.name, attribute.value);
  }
}

void XMLSchemaNamespaceRetrievalDecoder::Tag(ScannedTag& tag) { ZtTellTag(*this, tag); }

int XMLSchemaNamespaceRetrievalDecoder::End(ZtPiece, ZtPiece) { return 0; }

namespace {
// As drivers make it.
class Decoder final : public XMLSchemaNamespaceRetrievalDecoder {
 public:
  explicit Decoder(const ZtDocument&) {}
};
}  // namespace

const ZtDocument SchemaNamespaceRetrievalContext::kDocument = {
    ZtDocumentOf<SchemaNamespaceRetrievalContext, Decoder, SchemaNamespaceRetrievalUnMarshaller,
                 void, SchemaNamespaceRetrievalDataBinder>(kSource)
        .Schema(XML_SCHEMA_NAMESPACE_RETRIEVAL, "SchemaNamespaceRetrieval", nullptr)
        .Decodes("XMLSchemaNamespaceRetrievalDecoder", kDecoderSource, ZtPrefixRule::kExact)
        .Reads("SchemaNamespaceRetrievalUnMarshaller"),
    {}};
