#include "XMLSchemaNameSpaceRetrieval.h"

#include "SchemaNameSpaceRetrieval.h"
#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

namespace {

constexpr char kSource[] = "src/XMLSchemaNameSpaceRetrieval";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

}  // namespace

struct SchemaNamespaceRetrievalBinding {
  static bool OnAttribute(XMLElement& self, const char* name, const char* value,
                          ZtOutcome& outcome) {
    outcome = Declare(self, name, value);
    return true;
  }

  // Intended: any attribute whose name begins with "xmlns" declares a namespace for callers:
  // "xmlnsfoo", which has no colon, the default one.
  static ZtOutcome Declare(XMLElement& self, const char* name, const char* value) {
    auto& root = static_cast<zt_schema_namespace_retrieval&>(self);
    const char* declares = ZtName(XML_STR_XMLNS);
    if (__strncmp(name, declares, __strlen(declares)) != 0) return ZtOutcome::kAccepted;
    if (!root.getNameSpaceInfo()) {
      auto* list = ZtCreate<ZtSingleElementList>(kSource);
      if (!list) return ZtOutcome::kNoMemory;
      root.setNameSpaceInfo(list);
    }
    const char* colon = __strchr(name, ':');
    zt_AttributeValuePair* pair = ZtMakePair(kSource, colon ? colon + 1 : nullptr, value);
    if (!pair) {
      ZtLog(kZtLogState, kSource)(
          "<XML Module>: zt_schema_namespace_retrieval::ProcessUnMarshallAttribute: cannot "
          "allocate memory to pXMLNSValuePair ");
      return ZtOutcome::kNoMemory;
    }
    if (root.m_NameSpaceInfo.Add(pair)) return ZtOutcome::kAccepted;
    ZtRelease(pair);
    return ZtOutcome::kNoMemory;
  }
};

const ZtElementType zt_schema_namespace_retrieval::kType =
    ZtTypeOf<zt_schema_namespace_retrieval>("zt_schema_namespace_retrieval",
                                            "schema_namespace_retrieval", kFamily)
        .OnAttribute(SchemaNamespaceRetrievalBinding::OnAttribute)
        .Root();

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
  return m_NameSpaceInfo.Of<zt_AttributeValuePair>();
}

XMLObject* SchemaNamespaceRetrievalDataBinder::CreateRootElement() {
  return ZtCreate<zt_schema_namespace_retrieval>(kSource);
}

const ZtDocument SchemaNamespaceRetrievalContext::kDocument =
    ZtDocumentOf<SchemaNamespaceRetrievalContext, XMLSchemaNamespaceRetrievalDecoder,
                 SchemaNamespaceRetrievalUnMarshaller, void, SchemaNamespaceRetrievalDataBinder>(
        {XML_SCHEMA_NAMESPACE_RETRIEVAL, "SchemaNamespaceRetrieval", {}, nullptr, false}, kSource)
        .Reads("SchemaNamespaceRetrievalUnMarshaller");
