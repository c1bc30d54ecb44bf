#include "XMLSimservs.h"

#include "ElementCutter.h"
#include "SimservBinding.h"
#include "Simservs.h"
#include "XMLFile.h"
#include "XMLSchemaNameSpaceRetrieval.h"
#include "base/ZtLog.h"

namespace {

constexpr char kSource[] = "src/XMLSimservs";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

constexpr ZtFixedAttribute kNamespaces[] = {
    {XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP, XML_STR_ZT_NULL},
    {XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP, XML_STR_SS},
    {XML_STR_URN_IETF_PARAMS_XML_NS_COMMON_POLICY, XML_STR_CP},
    {XML_STR_URN_OMA_XML_XDM_COMMON_POLICY, XML_STR_OCP}};

// ---- Services -----------------------------------------------------------------------------------

// A service, in the order in which they are cut out and read. Its element's name is also the class
// name of its root type. The rest is what the logs call it.
struct Service {
  e_XmlStrRef element;
  eXMLSchemaID schema;
  const char* table;
  const char* cut;
  const char* read;
  const char* written;
};
constexpr Service kServices[] = {
    {XML_STR_INCOMING_COMMUNICATION_BARRING, XML_SCHEMA_COMMUNICATION_BARRING,
     "pCommunicationBarring", "Incoming Communication Barring", "Communication Barring (Incoming)",
     "Communication Barring"},
    {XML_STR_OUTGOING_COMMUNICATION_BARRING, XML_SCHEMA_COMMUNICATION_BARRING,
     "pCommunicationBarring", "Outgoing Communication Barring", "Communication Barring (Outgoing)",
     "Communication Barring"},
    {XML_STR_COMMUNICATION_DIVERSION, XML_SCHEMA_COMMUNICATION_DIVERSION, "pCommunicationDiversion",
     "Communication Diversion", "Communication Diversion", "Communication Diversion"},
    {XML_STR_COMMUNICATION_WAITING, XML_SCHEMA_COMMUNICATION_WAITING, "pCommunicationWaiting",
     "Communication Waiting", "Communication Waiting", "Communication Waiting"},
    {XML_STR_ORIGINATING_IDENTITY_PRESENTATION, XML_SCHEMA_OIP, "pOIP", "OIP", "poip", "OIP"},
    {XML_STR_TERMINATING_IDENTITY_PRESENTATION, XML_SCHEMA_TIP, "pTIP", "TIP", "ptip", "TIP"},
};
constexpr std::size_t kServiceCount = sizeof(kServices) / sizeof(kServices[0]);

const Service* FindService(const char* className) {
  for (const Service& service : kServices) {
    if (__strcmp(ZtName(service.element), className) == 0) return &service;
  }
  return nullptr;
}

// The contexts of the services, one for each schema, made when first asked for.
class Contexts {
 public:
  explicit Contexts(XMLObject* binder) : m_pBinder(binder) {}
  ~Contexts() {
    for (XMLContext* context : m_Contexts) XMLFactory::deleteContext(context);
  }
  Contexts(const Contexts&) = delete;
  Contexts& operator=(const Contexts&) = delete;

  XMLElement* Read(const Service& service, const char* text) {
    XMLContext* context = Get(service.schema);
    if (!context) return nullptr;
    XMLUnMarshaller* worker = context->unMarshaller();
    if (!worker) worker = context->createUnMarshaller();
    return worker ? worker->UnMarshall(text) : nullptr;
  }
  const char* Write(const Service& service, XMLElement* root) {
    XMLContext* context = Get(service.schema);
    if (!context) return nullptr;
    XMLMarshaller* worker = context->marshaller();
    if (!worker) worker = context->createMarshaller();
    return worker ? worker->Marshall(root) : nullptr;
  }

 private:
  XMLContext* Get(eXMLSchemaID schema) {
    XMLContext*& context = m_Contexts[schema];
    if (context) return context;
    context = XMLFactory::newInstance(schema);
    if (context && m_pBinder) context->SetNamespaceBinder(m_pBinder);
    return context;
  }

  XMLObject* m_pBinder;
  XMLContext* m_Contexts[XML_SCHEMA_COMMUNICATION_BARRING + 1] = {};
};

// Sets `few` to the namespaces of the services that `binder` names, so that the declarations of a
// document are gone through once and not again for each of its services.
bool PickNamespaces(XMLObject* binder, zt_schema_namespace_retrieval& few) {
  ZtNamespaceBindings bindings;
  ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
  few.setNameSpaceInfo(list);
  if (!list || !bindings.Complete() || !bindings.Apply(binder)) return false;
  for (const ZtNamespaceBinding* at = bindings.First(); at; at = at->next) {
    auto* pair = ZtCreate<zt_AttributeValuePair>(kSource);
    if (!pair) return false;
    pair->setName(at->alias.Get());
    pair->setValue(at->uri.Get());
    const bool whole = pair->getValue() && (pair->getName() || !at->alias.Get());
    if (whole && list->Add(static_cast<XMLAttribute*>(pair))) continue;
    ZtRelease(pair);
    return false;
  }
  return true;
}

// A text that grows; null before the first piece.
class GrowingText {
 public:
  GrowingText() = default;
  ~GrowingText() { __free(m_pText); }
  GrowingText(const GrowingText&) = delete;
  GrowingText& operator=(const GrowingText&) = delete;

  bool Append(const char* piece) {
    const std::size_t size = __strlen(piece);
    if (m_iSize + size >= m_iCapacity) {
      const std::size_t capacity = 2 * (m_iSize + size + 1);
      auto* text = static_cast<char*>(__malloc(capacity));
      if (!text) return false;
      if (m_pText) std::memcpy(text, m_pText, m_iSize);
      __free(m_pText);
      m_pText = text;
      m_iCapacity = capacity;
    }
    std::memcpy(m_pText + m_iSize, piece, size + 1);
    m_iSize += size;
    return true;
  }
  const char* Get() const { return m_pText; }

 private:
  char* m_pText = nullptr;
  std::size_t m_iSize = 0;
  std::size_t m_iCapacity = 0;
};

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

const ZtElementType zt_Simservs::kType = ZtTypeOf<zt_Simservs>("zt_Simservs", "simservs", kFamily)
                                             .Writer(XML_STR_SIMSERVS, "AddSimservsElementToXml")
                                             .Declares(kNamespaces)
                                             .Root();

XMLObject* SimservsDataBinder::CreateRootElement() { return ZtCreate<zt_Simservs>(kSource); }

// ---- Writing ------------------------------------------------------------------------------------

int SimservsMarshaller::AddSimservsElementToXml(zt_Simservs* simservs) {
  return Write(simservs, zt_Simservs::kType);
}

char* SimservsMarshaller::Complete(XMLElement* root, char* text) {
  GrowingText services;
  bool whole = services.Append("");
  Contexts contexts(nullptr);
  const ZtLog trace(kZtLogTrace, kSource);
  ZtSingleElementList* list = static_cast<zt_Simservs*>(root)->getServiceListValue();
  for (ZtListNode* node = list ? list->GetPtrToListHead() : nullptr; node && whole;
       node = node->next) {
    auto* object = static_cast<XMLElement*>(node->data);
    const char* className = object ? object->ClassName() : nullptr;
    if (!className) {
      trace(object ? "<XML Module>: SimservsMarshaller get ClassName failed"
                   : "<XML Module>: SimservsMarshaller GetKeyAtIndex failed");
      continue;
    }
    const Service* service = FindService(className);
    if (!service) continue;
    const char* written = contexts.Write(*service, object);
    trace("<XML Module>: SimservsMarshaller XML - %s Marshalling %s", service->written,
          written ? "Success" : "error");
    if (written) whole = services.Append(written);
  }
  if (whole) return InsertString(text, services.Get());
  ZtLog(kZtLogError, kSource)("<XML Module>: pString calloc failed");
  __free(text);
  return nullptr;
}

char* SimservsMarshaller::InsertString(char* envelope, const char* services) {
  if (!envelope || !services) {
    ZtLog(kZtLogState, kSource)("SimservsMarshaller :: InsertString mSimservsXml or pString NULL ");
    return envelope;
  }
  const char* end = __strstr(envelope, "</");
  if (!end) return envelope;
  const auto head = static_cast<std::size_t>(end - envelope);
  const std::size_t size = __strlen(services);
  const std::size_t tail = __strlen(end) + 1;
  auto* text = static_cast<char*>(__malloc(head + size + tail));
  if (!text) {
    ZtLog(kZtLogState, kSource)(
        "SimservsMarshaller :: InsertString malloc failed for pTempStr returning mSimservsXml ");
    return envelope;
  }
  std::memcpy(text, envelope, head);
  std::memcpy(text + head, services, size);
  std::memcpy(text + head + size, end, tail);
  __free(envelope);
  return text;
}

// ---- Reading ------------------------------------------------------------------------------------

XMLElement* SimservsUnMarshaller::UnMarshall(const char* xml) {
  if (!xml) return nullptr;
  char* text = __strdup(xml);
  if (!text) {
    ZtLog(kZtLogError, kSource)("<XML Module>: StrDup failed in SimservsUnMarshaller::UnMarshall");
    return nullptr;
  }
  XMLElement* root = validateXML(text) ? ReadCut(text) : nullptr;
  __free(text);
  return root;
}

XMLElement* SimservsUnMarshaller::UnMarshall(XMLFile* file) {
  return UnMarshall(file ? file->Read() : nullptr);
}

int SimservsUnMarshaller::validateXML(char* text) {
  XMLElement* root = nullptr;
  const bool valid = text && Parse(text, root);
  ZtRelease(root);
  ZtLog(kZtLogTrace,
        kSource)(valid ? "<XML Module>: XML Decode Success" : "<XML Module>: XML Decode Failed");
  return valid;
}

XMLElement* SimservsUnMarshaller::ReadCut(char* text) {
  const ZtLog trace(kZtLogTrace, kSource);
  ZtElementCutter cutters[kServiceCount];
  for (std::size_t i = 0; i < kServiceCount; ++i) {
    const ZtElementCutter::Result result = cutters[i].Cut(text, ZtName(kServices[i].element));
    constexpr char kLine[] = "<XML Module>: XML SimservsUnmarshall %s replace Substring %s ";
    for (std::size_t n = cutters[i].Count(); n; --n) trace(kLine, "Success", kServices[i].cut);
    if (result == ZtElementCutter::kCut) continue;
    if (result == ZtElementCutter::kNoTable) {
      ZtLog(kZtLogError, kSource)(
          "<XML Module>: Malloc failed in SimservsUnMarshaller::UnMarshall %s", kServices[i].table);
    } else {
      trace(kLine, "Error", kServices[i].cut);
    }
    return nullptr;
  }
  if (!*text) trace("<XML Module>: XML Decode Failed pstring NULL");
  XMLElement* parsed = nullptr;
  if (!Parse(text, parsed) || !parsed) return nullptr;
  auto* root = static_cast<zt_Simservs*>(parsed);
  zt_schema_namespace_retrieval namespaces;
  if (NamespaceBinder() && !PickNamespaces(NamespaceBinder(), namespaces)) {
    ZtRelease(parsed);
    return nullptr;
  }
  Contexts contexts(NamespaceBinder() ? &namespaces : nullptr);
  for (std::size_t i = 0; i < kServiceCount; ++i) {
    const char* fragment = cutters[i].Texts();
    for (std::size_t n = cutters[i].Count(); n; --n, fragment += __strlen(fragment) + 1) {
      auto* service = static_cast<XMLObject*>(contexts.Read(kServices[i], fragment));
      const bool added = service && root->addService(service);
      if (!added) ZtRelease(service);
      trace("<XML Module>: XML Decode %s in %s", added ? "Success" : "Failure", kServices[i].read);
    }
  }
  return root;
}

char* SimservsUnMarshaller::replaceSubStringWithNull(char* text, char** out, int start,
                                                     int length) {
  if (out) *out = nullptr;
  if (!text || !out || start < 0 || length <= 0) return text;
  const std::size_t size = __strlen(text);
  const auto from = static_cast<std::size_t>(start);
  const auto count = static_cast<std::size_t>(length);
  if (from > size || count > size - from) return text;
  *out = static_cast<char*>(__malloc(count + 1));
  if (!*out) {
    ZtLog(kZtLogState, kSource)(
        "<XML Module>: SimservsUnMarshaller :: replaceSubStringWithNull malloc failed returning "
        "pString");
    return text;
  }
  std::memcpy(*out, text + from, count);
  (*out)[count] = '\0';
  std::memmove(text + from, text + from + count, size - from - count + 1);
  return text;
}

// ---- Workers ------------------------------------------------------------------------------------

namespace {
constexpr const ZtElementType* kWritables[] = {&zt_Simservs::kType, nullptr};
}  // namespace

const ZtDocument SimservsContext::kDocument =
    ZtDocumentOf<SimservsContext, XMLSimservsDecoder, SimservsUnMarshaller, SimservsMarshaller,
                 SimservsDataBinder>(
        {XML_SCHEMA_SIMSERVS, "Simservs", {"simservs", nullptr}, kSimservsNamespace, true}, kSource)
        .Reads("SimservsUnMarshaller")
        .Writes(kWritables, "SimservsMarshaller", "SimservsXml");
