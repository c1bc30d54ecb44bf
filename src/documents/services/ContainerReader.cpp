#include "documents/services/ContainerReader.h"

#include <climits>

#include "base/ZtMemory.h"
#include "binding/ZtDocumentTable.h"
#include "text/TagScanner.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

namespace {
constexpr std::size_t kShortestService = sizeof("communication-waiting") - 1;
}  // namespace

ZtContainerReader::~ZtContainerReader() {
  for (ZtNamespaceDecoder* decoder : m_Decoders) ZtRelease(decoder);
  ZtRelease(m_pContainer);
}

XMLElement* ZtContainerReader::Read(ZtPiece xml, XMLObject* binder) {
  ZtArena arena;
  char* const text = xml.size <= INT_MAX ? arena.Keep(xml.text, xml.size) : nullptr;
  m_pArena = &arena;
  if (!text || !Begin(binder)) return nullptr;
  m_pEnd = text + xml.size;
  const bool parsed = m_Parser.DecodeWhole(text, xml.size, *this) == ZT_XML_SUCCESS;
  if (m_pNow != m_pContainer) ZtRelease(m_pNow->TakeRoot());
  zt_Simservs* const root = Join();
  if (root && parsed && !m_bOdd && m_pContainer->IsWhole()) return root;
  ZtRelease(root);
  return nullptr;
}

// False without memory, and where the log would tell that the declarations are empty.
bool ZtContainerReader::Begin(XMLObject* binder) {
  m_iDepth = m_iService = 0;
  m_bOdd = false;
  m_Services.Cut(0);
  m_Parser.InitXmlDecoder();
  if (!Prepare(SimservsContext::kDocument, m_pContainer)) return false;
  m_pNow = m_pContainer;
  m_pNow->ForgetNamespaces();
  auto* const declarations = zt_schema_namespace_retrieval::From(binder);
  auto* const list = declarations ? declarations->getNameSpaceInfo() : nullptr;
  if (list && list->GetCount() == 0) return false;
  m_pNow->SetNameSpaceBinderInfo(binder);
  return m_pNow->IsWhole();
}

// Makes the decoder of a document when it is first asked for; false without memory.
bool ZtContainerReader::Prepare(const ZtDocument& document, ZtNamespaceDecoder*& decoder) {
  if (!decoder) {
    decoder =
        static_cast<ZtNamespaceDecoder*>(document.NewDecoder().Create(document.source, document));
    if (!decoder) return false;
    if (m_pContainer != decoder) decoder->ShareNamespaces(*m_pContainer);
  }
  decoder->Use(*m_pArena);
  return true;
}

void ZtContainerReader::Start(ScannedTag& tag) {
  if (Enter(tag)) m_pNow->Start(tag);
}

void ZtContainerReader::Tag(ScannedTag& tag) {
  if (Enter(tag)) m_pNow->Tag(tag);
}

// Finds the decoder that is told the tag. What a service consists of has names that are shorter
// than those of services.
bool ZtContainerReader::Enter(const ScannedTag& tag) {
  ++m_iDepth;
  const char* const local = tag.colon ? tag.colon + 1 : tag.name;
  const bool plain = tag.NameSize() < kShortestService && *tag.name != '/' && *local != '/';
  return (m_iService && plain) || FindDecoder(tag, local);
}

// Finds out whether a service begins; false where something begins, or began, that is too odd.
bool ZtContainerReader::FindDecoder(const ScannedTag& tag, const char* local) {
  m_bOdd = m_bOdd || !MayBegin(tag, local);
  if (m_bOdd) m_iService = 0;
  return !m_bOdd;
}

bool ZtContainerReader::MayBegin(const ScannedTag& tag, const char* local) {
  if (*tag.name == '/' || *local == '/') return false;  // decoders refuse it with a line in the log
  const ZtPiece name(local, static_cast<std::size_t>(tag.nameEnd - local));
  // A second container would take the place of the first, which its decoder would hold on to.
  if (m_iDepth > 1 && !m_iService && ZtNameId(XML_STR_SIMSERVS).Is(name)) return false;
  const std::size_t size = tag.NameSize();
  if (size < kShortestService) return true;
  // What is cut out of a text is known by names that stand right after the '<' and end at a slash.
  if (tag.name[-1] != '<' || std::memchr(tag.name, '/', size)) return false;
  const std::size_t kind = ZtFindService(name);
  return kind == kZtServiceCount || BeginService(kind);
}

// False inside of another service and without memory.
bool ZtContainerReader::BeginService(std::size_t kind) {
  const ZtService& service = kZtServices[kind];
  ZtNamespaceDecoder*& decoder = m_Decoders[service.first];
  if (m_iService || !Prepare(*service.document, decoder)) return false;
  m_pNow = decoder;
  m_iService = m_iDepth;
  m_iKind = kind;
  return true;
}

void ZtContainerReader::Attributes(ScannedTag& tag) {
  if (!m_bOdd) m_pNow->Attributes(tag);
}

// All that a decoder does then is to refuse a name with a slash.
void ZtContainerReader::Opened(char*) {}

int ZtContainerReader::End(ZtPiece slashName, ZtPiece text) {
  if (m_bOdd) return 0;
  const int result = m_pNow->End(slashName, text);
  if (m_iDepth == m_iService) EndService();
  if (--m_iDepth == 0) {
    // What is cut out of a text is looked for up to its end.
    const char* const rest = slashName.text + slashName.size;
    if (std::memchr(rest, '<', static_cast<std::size_t>(m_pEnd - rest))) m_bOdd = true;
  }
  return result;
}

// A service without a root is one that cannot be read, and is dropped.
void ZtContainerReader::EndService() {
  XMLObject* const root = m_pNow->TakeRoot();
  m_bOdd = !m_pNow->IsWhole() || (root && !m_Services.Add({root, m_iKind}));
  if (m_bOdd) ZtRelease(root);
  m_iService = 0;
  m_pNow = m_pContainer;
}

// The container, null when there is none, with what services there are in the order of their kinds.
zt_Simservs* ZtContainerReader::Join() {
  auto* const root = static_cast<zt_Simservs*>(m_pContainer->TakeRoot());
  for (std::size_t kind = 0; kind < kZtServiceCount; ++kind) {
    for (const Service& service : m_Services) {
      if (service.kind != kind) continue;
      if (root && root->m_Services.Add(service.object, "src/XMLList", m_pArena)) continue;
      m_bOdd = true;
      ZtRelease(service.object);
    }
  }
  return root;
}
