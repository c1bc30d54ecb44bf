#include "SchemaNameSpaceRetrieval.h"

#include "XMLSchemaNameSpaceRetrieval.h"
#include "binding/ZtReading.h"

namespace {
constexpr char kSource[] = "src/SchemaNameSpaceRetrieval";
constexpr int kRootLine = 14;  // where the memory log's readers know the root from
constexpr ZtReading kReading =
    ZtReading("XMLSchemaNamespaceRetrievalDecoder", kSource, ZtPrefixRule::kExact);
}  // namespace

XMLSchemaNamespaceRetrievalDecoder::XMLSchemaNamespaceRetrievalDecoder()
    : ZtSchemaDecoder(kReading) {
  m_pRoot = ZtCreate<zt_schema_namespace_retrieval>(kSource, kRootLine);
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

// Attributes are all that counts here: each comes to ProcessAttribute.
int XMLSchemaNamespaceRetrievalDecoder::ProcessStart(ScannedTag&) { return 0; }

void XMLSchemaNamespaceRetrievalDecoder::ProcessAttributes(ScannedTag& tag) {
  XmlDecoderSchema::ProcessAttributes(tag);  // NOLINT(bugprone-parent-virtual-call): one by one
}

int XMLSchemaNamespaceRetrievalDecoder::ProcessEnd(char*, std::size_t, char*, std::size_t) {
  return 0;
}
