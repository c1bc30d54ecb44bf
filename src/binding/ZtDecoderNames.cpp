// What a decoder asks for seldom: names that it has to write anew, and what no row of the open
// element names.
#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"

bool ZtSchemaDecoder::RefusesStart(const char* name) {
  const char* colon = *name == '/' ? nullptr : __strchr(name, ':');
  if (!colon || colon[1] != '/') return false;
  RefuseSlash(name);
  return true;
}

void ZtSchemaDecoder::RefuseSlash(const char* name) {
  if (!m_bFailed) {
    m_pRefused = name;
    ZtLog(kZtLogError, m_Document.decoderSource)(
        "<XML Module>: %s: the name of a start tag begins with a slash", m_Document.decoder);
  }
  m_bFailed = true;
}

// The type that objects of the element `name` have anywhere in the document, or null. The types are
// gathered for the first element that is asked for: most documents have none that is out of place.
const ZtElementType* ZtSchemaDecoder::FindAnywhere(ZtNameId name, bool atEnd) {
  if (name == kZtNoName) return nullptr;
  if (m_iTypes == 0) {
    for (const ZtRoot& root : m_Document.roots) AddType(root.type);
    for (std::size_t i = 0; i < m_iTypes; ++i) {
      for (const ZtField& row : *m_Types[i]) {
        if (row.IsObject()) AddType(row.detail.type);
      }
      for (const ZtChoice* at = m_Types[i]->Choices(); at && at->type; ++at) AddType(at->type);
    }
  }
  for (std::size_t i = 0; i < m_iTypes; ++i) {
    if (m_Types[i]->namesStayInside && !atEnd) continue;
    const ZtField* row = ZtFindChild(*m_Types[i], name);
    if (row && row->IsObject()) return row->detail.type;
    if (const ZtChoice* choice = ZtFindNamed(m_Types[i]->Choices(), name)) return choice->type;
  }
  return nullptr;
}

void ZtSchemaDecoder::AddType(const ZtElementType* type) {
  std::size_t i = 0;
  while (i < m_iTypes && m_Types[i] != type) ++i;
  if (i < m_iTypes || i == kMostTypes) return;
  m_Types[m_iTypes++] = type;
}

const char* ZtSchemaDecoder::LocalName(char* name, std::size_t& size) {
  const char* local = name;
  if (m_Document.prefixes != ZtPrefixRule::kExact) {
    local = XMLRemoveNameSpaceTag(name) ? m_PassName : nullptr;
  }
  size = local ? __strlen(local) : 0;
  return local;
}

char* ZtSchemaDecoder::ReservePassName(std::size_t size, const char* noMemory) {
  if (size < m_iPassCapacity) return m_PassName;
  __free(m_PassName);
  constexpr std::size_t kLeast = 32;
  m_iPassCapacity = size < kLeast ? kLeast : size + 1;
  m_PassName = static_cast<char*>(__malloc(m_iPassCapacity));
  if (!m_PassName) {
    m_iPassCapacity = 0;
    ZtLog(kZtLogTrace, m_Document.decoderSource, __LINE__, kZtModuleParser)(noMemory,
                                                                            m_Document.decoder);
  }
  return m_PassName;
}

int ZtSchemaDecoder::XMLRemoveNameSpaceTag(char* name) {
  if (!name) return 0;
  const std::size_t size = ZtShortNameSize(name);
  if (!ReservePassName(size, m_Document.noMemory)) return 0;
  std::memcpy(m_PassName, name, size);
  m_PassName[size] = '\0';
  char* rest = *m_PassName == '/' ? m_PassName + 1 : m_PassName;
  if (const char* colon = __strchr(rest, ':')) std::memmove(rest, colon + 1, __strlen(colon));
  return 1;
}
