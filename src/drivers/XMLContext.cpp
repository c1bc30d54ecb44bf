#include "ztxml/XMLContext.h"

#include "base/ZtMemory.h"

struct XMLContext::Older : ZtHeapObject {
  void (*release)(void* worker);
  void* worker;
  Older* next;
};

namespace {
template <class Worker>
void ReleaseWorker(void* worker) {
  ZtRelease(static_cast<Worker*>(worker));
}
}  // namespace

XMLContext::~XMLContext() {
  while (m_pOlder) {
    Older* older = m_pOlder;
    m_pOlder = older->next;
    older->release(older->worker);
    delete older;
  }
  ZtRelease(m_pMarshaller);
  ZtRelease(m_pUnMarshaller);
  ZtRelease(m_pBinderFactory);
  delete m_pSettings;
}

int XMLContext::SetNamespaceBinder(XMLObject*) { return 0; }

// ---- What is asked for --------------------------------------------------------------------------

namespace {
const ZtSettings kDefaults;
}

const ZtSettings& XMLContext::settings() const { return m_pSettings ? *m_pSettings : kDefaults; }

// Null without memory.
ZtSettings* XMLContext::Settings() {
  if (!m_pSettings) m_pSettings = new ZtSettings;
  return m_pSettings;
}

int XMLContext::UseProfile(eXMLProfile profile) {
  if (m_pMarshaller || m_pUnMarshaller || m_pBinderFactory || !Settings()) return 0;
  m_pSettings->profile = profile;
  return 1;
}

int XMLContext::KeepSource(bool keep) {
  if (!Settings()) return 0;
  m_pSettings->keepsSource = keep;
  return 1;
}

int XMLContext::LimitText(std::size_t bytes) {
  if (!Settings()) return 0;
  m_pSettings->mostText = bytes;
  return 1;
}

int XMLContext::TellLosses(ZtLossHandler handler, void* context) {
  if (!Settings()) return 0;
  m_pSettings->lost = handler;
  m_pSettings->lostContext = context;
  return 1;
}

// ---- Workers ------------------------------------------------------------------------------------

template <class Worker>
Worker* XMLContext::KeepIn(Worker*& field, Worker* worker) {
  if (worker && field) {
    auto* older = new Older;
    if (!older) {
      ZtRelease(worker);
      return nullptr;
    }
    older->release = ReleaseWorker<Worker>;
    older->worker = field;
    older->next = m_pOlder;
    m_pOlder = older;
  }
  if (worker) field = worker;
  return worker;
}

XMLMarshaller* XMLContext::Keep(XMLMarshaller* worker) { return KeepIn(m_pMarshaller, worker); }

XMLUnMarshaller* XMLContext::Keep(XMLUnMarshaller* worker) {
  return KeepIn(m_pUnMarshaller, worker);
}

XMLObjectFactory* XMLContext::Keep(XMLObjectFactory* worker) {
  return KeepIn(m_pBinderFactory, worker);
}
