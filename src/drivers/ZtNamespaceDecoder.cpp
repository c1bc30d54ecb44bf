#include "ztxml/ZtNamespaceDecoder.h"

#include "base/ZtBytes.h"
#include "base/ZtLog.h"
#include "binding/ZtDocumentTable.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

ZtNamespaceDecoder::ZtNamespaceDecoder(const ZtDocument& document) : ZtSchemaDecoder(document) {
  if (m_Bindings.Complete()) return;
  m_bFailed = true;
  ZtLog(kZtLogTrace, document.decoderSource)("%s :: %s: Malloc cannot allocate memory",
                                             document.decoder, document.decoder);
}

int ZtNamespaceDecoder::SetNameSpaceBinderInfo(XMLObject* binder) {
  auto* declarations = zt_schema_namespace_retrieval::From(binder);
  if (declarations && !m_Bindings.Apply(declarations->getNameSpaceInfo())) m_bFailed = true;
  return 1;
}

int ZtNamespaceDecoder::XMLChangeNamespaceTag(char* name) {
  if (!name) return 0;
  const bool atEnd = *name == '/';
  const char* document = name + atEnd;
  const std::size_t shortSize = ZtShortNameSize(name);
  const std::size_t searched = shortSize > atEnd ? shortSize - atEnd : 0;
  const auto* colon = static_cast<const char*>(std::memchr(document, ':', searched));
  const ZtNamespaceBinding* at = colon ? m_pBindings->First() : nullptr;
  for (const auto prefixSize = static_cast<std::size_t>(colon ? colon - document : 0); at;
       at = at->next) {
    const char* alias = at->alias.Get();
    if (alias && at->aliasSize == prefixSize && std::memcmp(alias, document, prefixSize) == 0) {
      break;
    }
  }
  if (!at || !at->prefix.Get() || !*at->prefix.Get()) {
    const std::size_t size = __strlen(name);
    if (!ReservePassName(2 * size, m_Document.noMemory)) return 0;
    std::memcpy(m_PassName, name, size + 1);
    return 1;
  }
  const std::size_t ownSize = __strlen(at->prefix.Get());
  const auto restSize = static_cast<std::size_t>(name + shortSize - colon);  // with its colon
  if (!ReservePassName(2 * (atEnd + ownSize + restSize), m_Document.noMemory)) return 0;
  char* to = m_PassName;
  if (atEnd) *to++ = '/';
  std::memcpy(to, at->prefix.Get(), ownSize);
  std::memcpy(to + ownSize, colon, restSize);
  to[ownSize + restSize] = '\0';
  return 1;
}

const char* ZtNamespaceDecoder::LocalName(char* name, std::size_t& size) {
  const char* local = Rewritten(name);
  size = local ? __strlen(local) : 0;
  return local;
}

// A prefix that a declaration binds, or one of the library's own, is taken off.
const char* ZtNamespaceDecoder::LocalPart(const char* name, const char* colon) const {
  if (!colon) return name;
  if (colon == name) return nullptr;
  const auto size = static_cast<std::size_t>(colon - name);
  for (const ZtNamespaceBinding* at = m_pBindings->First(); at; at = at->next) {
    const ZtPiece prefix = at->prefix.Piece();
    if (at->aliasSize == size && ZtSameBytes(at->alias.Get(), name, size)) return colon + 1;
    if (prefix.size == size && ZtSameBytes(prefix.text, name, size)) return colon + 1;
  }
  return name;
}

const char* ZtNamespaceDecoder::Rewritten(char* name) {
  if (!XMLChangeNamespaceTag(name)) return nullptr;
  const bool atEnd = *m_PassName == '/';
  char* prefixed = m_PassName + atEnd;
  for (const ZtNamespaceBinding* at = m_pBindings->First(); at; at = at->next) {
    const std::size_t size = __strlen(at->prefix.Get());
    if (__strncmp(prefixed, at->prefix.Get(), size) != 0 || prefixed[size] != ':') continue;
    char* local = prefixed + size + 1;
    if (!atEnd) return local;
    // An end is known by its slash: the name with it stands after the pass name's NUL, for which
    // XMLChangeNamespaceTag left room.
    const std::size_t localSize = __strlen(local);
    char* end = local + localSize + 1;
    *end = '/';
    std::memcpy(end + 1, local, localSize + 1);
    return end;
  }
  return m_PassName;
}
