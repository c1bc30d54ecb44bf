#include "ztxml/ZtNamespaces.h"

#include "binding/ZtNames.h"
#include "ztxml/XMLValueTypes.h"
#include "ztxml/ztPlatform.h"

namespace {
// What no name can begin with must not be written before one.
bool IsPrefix(const char* text) { return !text[std::strcspn(text, ":<>&\"'/= \t\r\n")]; }
}  // namespace

ZtNamespaceBindings::ZtNamespaceBindings() { Build(); }

bool ZtNamespaceBindings::Build() {
  static constexpr struct {
    e_XmlStrRef prefix, uri;
  } kRecords[] = {
      {XML_STR_SS, XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP},
      {XML_STR_CP, XML_STR_URN_IETF_PARAMS_XML_NS_COMMON_POLICY},
      {XML_STR_OCP, XML_STR_URN_OMA_XML_XDM_COMMON_POLICY},
  };
  ZtNamespaceBinding** end = &m_pFirst;
  for (const auto& record : kRecords) {
    if (!*end) *end = New(record.prefix, record.uri);
    if (!*end) return false;
    end = &(*end)->next;
  }
  m_bComplete = true;
  Forget();
  return true;
}

ZtNamespaceBindings::~ZtNamespaceBindings() {
  while (m_pFirst) {
    ZtNamespaceBinding* binding = m_pFirst;
    m_pFirst = binding->next;
    delete binding;
  }
}

ZtNamespaceBinding* ZtNamespaceBindings::New(e_XmlStrRef prefix, e_XmlStrRef uri) {
  auto* binding = new ZtNamespaceBinding;
  if (!binding) return nullptr;
  binding->prefix.Refer(ZtName(prefix));
  binding->uri.Refer(ZtName(uri));
  return binding;
}

bool ZtNamespaceBindings::SetAlias(ZtNamespaceBinding& binding, const char* alias) {
  binding.aliasSize = alias ? __strlen(alias) : 0;
  return binding.alias.Set(alias);
}

void ZtNamespaceBindings::UseOwn() {
  for (ZtNamespaceBinding* at = m_pFirst; at; at = at->next) {
    at->alias.Refer(at->prefix.Piece());
    at->aliasSize = at->prefix.Piece().size;
  }
}

void ZtNamespaceBindings::Forget() {
  UseOwn();
  // Intended: unlike "cp" and "ocp" the prefix "ss" is not recognised until the declarations of a
  // document have been applied; names with it pass unchanged, which for callers comes to the same.
  if (m_pFirst) static_cast<void>(SetAlias(*m_pFirst, nullptr));
}

const ZtNamespaceBinding* ZtNamespaceBindings::Find(const char* ownPrefix) const {
  const ZtNamespaceBinding* at = ownPrefix ? m_pFirst : nullptr;
  // The library's own texts are told by where they lie.
  while (at && at->prefix.Get() != ownPrefix) at = at->next;
  if (at || !ownPrefix) return at;
  at = m_pFirst;
  while (at && (!at->prefix.Get() || __strcmp(at->prefix.Get(), ownPrefix) != 0)) at = at->next;
  return at;
}

bool ZtNamespaceBindings::Apply(ZtListOf<zt_AttributeValuePair>* declarations) {
  for (ZtNamespaceBinding* at = m_pFirst; at; at = at->next) at->given = false;
  ZtListNode* node = declarations ? declarations->GetPtrToListHead() : nullptr;
  for (; node; node = node->next) {
    const auto* pair = zt_AttributeValuePair::From(static_cast<XMLAttribute*>(node->data));
    if (!pair || !pair->getValue()) continue;
    ZtNamespaceBinding* at = m_pFirst;
    while (at && (!at->uri.Get() || __strcmp(at->uri.Get(), pair->getValue()) != 0)) at = at->next;
    if (!at) continue;
    const bool named = pair->getName() && *pair->getName();
    if (named ? !IsPrefix(pair->getName()) : at->given) continue;
    at->given = named;
    if (!SetAlias(*at, named ? pair->getName() : nullptr)) return false;
  }
  return true;
}
