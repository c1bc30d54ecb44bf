#include "ztxml/XMLSimservs.h"

#include <cstring>
#include <utility>

#include "base/ZtBuffer.h"
#include "base/ZtBytes.h"
#include "base/ZtLog.h"
#include "binding/ZtElementWriter.h"
#include "documents/services/ContainerReader.h"
#include "documents/services/ElementCutter.h"
#include "documents/services/SimservBinding.h"
#include "drivers/ZtExplain.h"
#include "ztxml/XMLCommunicationBarring.h"
#include "ztxml/XMLCommunicationDiversion.h"
#include "ztxml/XMLCommunicationWaiting.h"
#include "ztxml/XMLFile.h"
#include "ztxml/XMLOIP.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XMLTIP.h"

namespace {

constexpr char kSource[] = "src/XMLSimservs";
constexpr ZtFamily kFamily = ZtQuietFamily(kSource);

}  // namespace

// ---- Services -----------------------------------------------------------------------------------

// Intended: the ClassName of a service's root type is its element's name
// ("communication-diversion"), where other types give the name of their C++ class; callers tell
// services apart by it. Intended: log lines call one service by several names, such as "pOIP",
// "poip" and "OIP"; log readers search for all of them.
const ZtService kZtServices[kZtServiceCount] = {
    {XML_STR_INCOMING_COMMUNICATION_BARRING, &CommunicationBarringContext::kDocument, 0,
     "pCommunicationBarring", "Incoming Communication Barring", "Communication Barring (Incoming)",
     "Communication Barring"},
    {XML_STR_OUTGOING_COMMUNICATION_BARRING, &CommunicationBarringContext::kDocument, 0,
     "pCommunicationBarring", "Outgoing Communication Barring", "Communication Barring (Outgoing)",
     "Communication Barring"},
    {XML_STR_COMMUNICATION_DIVERSION, &CommunicationDiversionContext::kDocument, 2,
     "pCommunicationDiversion", "Communication Diversion", "Communication Diversion",
     "Communication Diversion"},
    {XML_STR_COMMUNICATION_WAITING, &CommunicationWaitingContext::kDocument, 3,
     "pCommunicationWaiting", "Communication Waiting", "Communication Waiting",
     "Communication Waiting"},
    {XML_STR_ORIGINATING_IDENTITY_PRESENTATION, &OIPContext::kDocument, 4, "pOIP", "OIP", "poip",
     "OIP"},
    {XML_STR_TERMINATING_IDENTITY_PRESENTATION, &TIPContext::kDocument, 5, "pTIP", "TIP", "ptip",
     "TIP"},
};

std::size_t ZtFindService(ZtPiece name) {
  std::size_t i = 0;
  while (i < kZtServiceCount && !ZtNameId(kZtServices[i].element).Is(name)) ++i;
  return i;
}

namespace {

// The contexts of the services, one for each schema, made when first asked for.
class Contexts {
 public:
  explicit Contexts(XMLObject* binder, ztxml::Error* error = nullptr)
      : m_pBinder(binder), m_pError(error) {}
  ~Contexts() {
    for (XMLContext* context : m_Contexts) ZtRelease(context);
  }
  Contexts(const Contexts&) = delete;
  Contexts& operator=(const Contexts&) = delete;

  // False when out of memory. `root` is null also when the service cannot be read.
  bool Read(const ZtService& service, const char* text, XMLElement*& root) {
    XMLContext* context = Get(service);
    XMLUnMarshaller* worker = context ? context->unMarshaller() : nullptr;
    if (context && !worker) worker = context->createUnMarshaller();
    if (worker) worker->ReportTo(m_pError);
    root = worker ? worker->UnMarshall(text) : nullptr;
    // The text is part of a document that was parsed, so only memory can be lacking.
    return root || (worker && static_cast<ZtUnMarshaller*>(worker)->Parse(text, root));
  }
  // False when out of memory. `text` is null also when the service cannot be written; it lives
  // until the next one is.
  bool Write(const ZtService& service, XMLElement* root, const char*& text) {
    if (ZtLogDiscards(kZtLogState)) return WriteAtOnce(service, root, text);
    XMLContext* context = Get(service);
    XMLMarshaller* worker = context ? context->marshaller() : nullptr;
    if (context && !worker) worker = context->createMarshaller();
    text = worker ? worker->Marshall(root) : nullptr;
    return text || (worker && !static_cast<ZtMarshaller*>(worker)->WasCutShort());
  }

 private:
  // What the service's own worker writes, where its lines in the log are not heard.
  bool WriteAtOnce(const ZtService& service, XMLElement* root, const char*& text) {
    const ZtDocument& document = *service.document;
    m_Generator.ztInitXmlDoc();
    m_Generator.ztResetHeader();
    ZtElementWriter writer(m_Generator, {document.source, document.marshaller});
    const int written = writer.Write(root, *ZtRootOf(document, ZtName(service.element))->type);
    text = written ? m_Generator.ztGetXmlDoc() : nullptr;
    if (text && *text == '\n') ++text;
    return !writer.IsIncomplete() && !m_Generator.outOfMemory();
  }

  // Two services may belong to one schema (the barrings do) and then share its context.
  XMLContext* Get(const ZtService& service) {
    XMLContext*& context = m_Contexts[service.first];
    if (context) return context;
    context = ZtNewContext(*service.document);
    if (context && m_pBinder) context->SetNamespaceBinder(m_pBinder);
    return context;
  }

  XMLObject* m_pBinder;
  ztxml::Error* m_pError;
  ZtXMLDocGenerator m_Generator;
  XMLContext* m_Contexts[kZtServiceCount] = {};
};

// Sets `few` to the namespaces of the services as `bindings` has them, for texts of at most `size`
// bytes: a longer prefix cannot occur in them. False when out of memory.
bool PickNamespaces(const ZtNamespaceBindings& bindings, std::size_t size,
                    zt_schema_namespace_retrieval& few) {
  ZtSingleElementList* list = zt_xml_common_methods::CreateElementList();
  few.setNameSpaceInfo(list);
  for (const ZtNamespaceBinding* at = bindings.First(); at && list; at = at->next) {
    const char* alias = at->aliasSize <= size ? at->alias.Get() : nullptr;
    zt_AttributeValuePair* pair = ZtMakePair(kSource, alias, at->uri.Get());
    if (!pair || !list->Add(static_cast<XMLAttribute*>(pair))) {
      ZtRelease(pair);
      return false;
    }
  }
  return list != nullptr;
}

// The namespaces of a document, prepared for its services: the declarations are read once, not
// again for each service, and prefixes longer than a service cost it nothing.
class ServiceNamespaces {
 public:
  explicit ServiceNamespaces(zt_schema_namespace_retrieval* declarations)
      : m_bBound(declarations != nullptr) {
    m_bComplete = !declarations ||
                  (m_Bindings.Complete() && m_Bindings.Apply(declarations->getNameSpaceInfo()));
    for (const ZtNamespaceBinding* at = m_Bindings.First(); at; at = at->next) {
      if (at->aliasSize > m_iLongest) m_iLongest = at->aliasSize;
    }
  }

  // False when out of memory.
  bool For(const char* service) {
    if (!m_bBound || !m_bComplete) return m_bComplete;
    const std::size_t size = m_iLongest <= kShortPrefix ? kShortPrefix : __strlen(service);
    if (size == m_iPicked) return true;
    m_iPicked = size;
    return PickNamespaces(m_Bindings, size, m_Few);
  }
  XMLObject* Binder() { return m_bBound ? &m_Few : nullptr; }

 private:
  static constexpr std::size_t kShortPrefix = 64;

  ZtNamespaceBindings m_Bindings;
  zt_schema_namespace_retrieval m_Few;
  std::size_t m_iLongest = 0;
  std::size_t m_iPicked = 0;
  bool m_bBound;
  bool m_bComplete;
};

bool Append(ZtBuffer& services, ZtPiece text) {
  services.Append(text);
  if (!services.Failed()) return true;
  ZtLog(kZtLogError, kSource)("<XML Module>: pString calloc failed");
  return false;
}

}  // namespace

// ---- Types --------------------------------------------------------------------------------------

namespace {
constexpr ZtChoice kServiceTypes[] = {
    {XML_STR_INCOMING_COMMUNICATION_BARRING, zt_incoming_communication_barring::kType},
    {XML_STR_OUTGOING_COMMUNICATION_BARRING, zt_outgoing_communication_barring::kType},
    {XML_STR_COMMUNICATION_DIVERSION, zt_communication_diversion::kType},
    {XML_STR_COMMUNICATION_WAITING, zt_communication_waiting::kType},
    {XML_STR_ORIGINATING_IDENTITY_PRESENTATION, zt_originating_identity_presentation::kType},
    {XML_STR_TERMINATING_IDENTITY_PRESENTATION, zt_terminating_identity_presentation::kType},
    {}};
}  // namespace

// Intended: the exact profile has no row for the services, which are cut out of the document and
// read and written by their own workers; the standard profile takes them as children.
struct SimservsBinding {
  static constexpr ZtField kServices =
      ztrow::OtherChildren(ZT_AT(zt_Simservs, m_Services), kServiceTypes);
};

namespace {
constexpr ZtElementType kStandard = {ZtTypeOf<zt_Simservs>("zt_Simservs", "simservs", kFamily),
                                     {SimservsBinding::kServices}};
// Intended: the namespace of the services is declared twice, as default and as "ss": the root is
// written without a prefix and its services with "ss", whatever the document that was read had;
// peers compare the text.
constexpr ZtExtras kNamespaces = {
    {{XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP, XML_STR_ZT_NULL},
     {XML_STR_HTTP_URI_ETSI_ORG_NGN_PARAMS_XML_SIMSERVS_XCAP, XML_STR_SS},
     {XML_STR_URN_IETF_PARAMS_XML_NS_COMMON_POLICY, XML_STR_CP},
     {XML_STR_URN_OMA_XML_XDM_COMMON_POLICY, XML_STR_OCP}},
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    &kStandard};
}  // namespace

const ZtElementType zt_Simservs::kType = {ZtTypeOf<zt_Simservs>("zt_Simservs", "simservs", kFamily)
                                              .Writer(XML_STR_SIMSERVS, "AddSimservsElementToXml")
                                              .With(kNamespaces)
                                              .Root()};

// ---- Writing ------------------------------------------------------------------------------------

// A service that cannot be written is left out. When memory is lacking for one, there is no
// document: a server that got it without the service would delete the service.
char* SimservsMarshaller::Complete(XMLElement* root, char* text) {
  ZtBuffer services;
  bool whole = true;
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
    const std::size_t kind = ZtFindService(className);
    if (kind == kZtServiceCount) continue;
    const ZtService& service = kZtServices[kind];
    const char* written = nullptr;
    whole = contexts.Write(service, object, written);
    trace("<XML Module>: SimservsMarshaller XML - %s Marshalling %s", service.written,
          written ? "Success" : "error");
    whole = whole && (!written || Append(services, written));
  }
  whole = whole && Append(services, {"", 1});
  char* document = whole ? InsertString(text, services.Text()) : text;
  if (document != text) return document;
  __free(text);
  return nullptr;
}

char* SimservsMarshaller::InsertString(char* envelope, const char* services) {
  if (!envelope || !services) {
    ZtLog(kZtLogState, kSource)("SimservsMarshaller :: InsertString mSimservsXml or pString NULL ");
    return envelope;
  }
  // Intended: InsertString puts the services before the first "</" of the envelope, whichever
  // element ends there; callers with an envelope of their own give it an empty root.
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
  ZtCopy(ZtCopy(ZtCopy(text, {envelope, head}), {services, size}), {end, tail});
  __free(envelope);
  return text;
}

// ---- Reading ------------------------------------------------------------------------------------

SimservsUnMarshaller::~SimservsUnMarshaller() { delete m_pReader; }

XMLElement* SimservsUnMarshaller::UnMarshall(const char* xml) {
  if (IsStandard()) return ZtUnMarshaller::UnMarshall(xml);
  if (!Begin(xml)) return nullptr;
  return Read(xml, "<XML Module>: StrDup failed in SimservsUnMarshaller::UnMarshall");
}

XMLElement* SimservsUnMarshaller::UnMarshall(XMLFile* file) {
  if (IsStandard()) return ZtUnMarshaller::UnMarshall(file);
  const char* xml = file ? file->Read() : nullptr;
  return Begin(xml) ? Read(xml, nullptr) : nullptr;
}

XMLElement* SimservsUnMarshaller::UnMarshall(const char* text, std::size_t size) {
  if (IsStandard()) return ZtUnMarshaller::UnMarshall(text, size);
  if (!Begin(text) || HasNul({text, size})) return nullptr;
  return Read({text, size}, nullptr);
}

// `noMemory` is the line of a text that cannot be copied, null for none.
XMLElement* SimservsUnMarshaller::Read(ZtPiece xml, const char* noMemory) {
  TellLosses(xml);
  if (XMLElement* const root = ReadOnePass(xml)) return root;
  auto* const text = static_cast<char*>(__malloc(xml.size + 1));
  if (!text) {
    if (noMemory) ZtLog(kZtLogError, kSource)(noMemory);
    return Ended(nullptr);
  }
  *ZtCopy(text, xml) = '\0';
  XMLElement* root = validateXML(text) ? ReadPieces(xml, text) : nullptr;
  __free(text);
  return Ended(root);
}

// The document, read in one pass, which keeps no order of log lines: null where they are heard, and
// for a document that has to be read in pieces, if only to tell what is wrong with it.
XMLElement* SimservsUnMarshaller::ReadOnePass(ZtPiece xml) {
  if (!ZtLogDiscards(kZtLogState)) return nullptr;
  if (!m_pReader) m_pReader = new ZtContainerReader;
  XMLElement* const root = m_pReader ? m_pReader->Read(xml, NamespaceBinder()) : nullptr;
  // What a larger document took is not held on to, and nothing is that the memory log would show.
  constexpr std::size_t kMostKept = 8192;
  if (!root || xml.size > kMostKept || !ZtRecordsNothing()) {
    delete m_pReader;
    m_pReader = nullptr;
  }
  return root;
}

int SimservsUnMarshaller::validateXML(char* text) {
  XMLElement* root = nullptr;
  const bool valid = text && Parse(text, root);
  ZtRelease(root);
  ZtLog(kZtLogTrace,
        kSource)(valid ? "<XML Module>: XML Decode Success" : "<XML Module>: XML Decode Failed");
  return valid;
}

namespace {

constexpr char kCutLine[] = "<XML Module>: XML SimservsUnmarshall %s replace Substring %s ";
constexpr char kNoCopyLine[] =
    "<XML Module>: SimservsUnMarshaller :: replaceSubStringWithNull malloc failed returning "
    "pString";

bool Cut(const ZtService& service, char* text, ZtElementCutter& cutter) {
  const ZtLog trace(kZtLogTrace, kSource);
  switch (cutter.Cut(text, ZtName(service.element))) {
    case ZtElementCutter::kCut:
      for (std::size_t n = cutter.Count(); n; --n) trace(kCutLine, "Success", service.cut);
      return true;
    case ZtElementCutter::kNoCopy:
      ZtLog(kZtLogState, kSource)(kNoCopyLine);
      trace(kCutLine, "Error", service.cut);
      return false;
    default:
      ZtLog(kZtLogError, kSource)(
          "<XML Module>: Malloc failed in SimservsUnMarshaller::UnMarshall %s", service.table);
      return false;
  }
}

// Reads the services that were cut out into `root`; false when memory is lacking for one. Intended:
// a service that cannot be read is dropped, so that callers get the others.
bool ReadServices(const ZtService& service, const ZtElementCutter& cutter,
                  ServiceNamespaces& namespaces, Contexts& contexts, zt_Simservs& root) {
  const char* text = cutter.Texts();
  for (std::size_t n = cutter.Count(); n; --n, text += __strlen(text) + 1) {
    XMLElement* read = nullptr;
    const bool done = namespaces.For(text) && contexts.Read(service, text, read);
    const bool added = read && root.addService(static_cast<XMLObject*>(read));
    ZtLog(kZtLogTrace, kSource)("<XML Module>: XML Decode %s in %s", added ? "Success" : "Failure",
                                service.read);
    if (added) continue;
    ZtRelease(read);
    if (!done || read) return false;
  }
  return true;
}

}  // namespace

XMLElement* SimservsUnMarshaller::ReadPieces(ZtPiece xml, char* text) {
  ZtElementCutter cutters[kZtServiceCount];
  for (std::size_t i = 0; i < kZtServiceCount; ++i) {
    if (!Cut(kZtServices[i], text, cutters[i])) return nullptr;
  }
  if (!*text) ZtLog(kZtLogTrace, kSource)("<XML Module>: XML Decode Failed pstring NULL");
  // What is left was parsed with the services: it is the root that does not fit.
  XMLElement* parsed = nullptr;
  ztxml::Error error;
  ztxml::Error* const asked = std::exchange(m_pError, &error);
  Parse(text, parsed);
  m_pError = asked;
  if (!parsed) {
    if (asked && error.code > ztxml::Code::kNoMemory) {
      ZtExplainRoot(*asked, {Document(), xml, {}, xml, false});
    }
    return nullptr;
  }
  ServiceNamespaces namespaces(zt_schema_namespace_retrieval::From(NamespaceBinder()));
  Contexts contexts(namespaces.Binder(), m_pError ? &error : nullptr);
  for (std::size_t i = 0; i < kZtServiceCount; ++i) {
    auto& root = static_cast<zt_Simservs&>(*parsed);
    if (ReadServices(kZtServices[i], cutters[i], namespaces, contexts, root)) continue;
    // What is part of the root was parsed before.
    const bool isText = error.code > ztxml::Code::kNoMemory;
    if (m_pError && isText) ZtExplainRest(*m_pError, {Document(), xml, {}, xml, false});
    ZtRelease(parsed);
    return nullptr;
  }
  if (m_pError) *m_pError = ztxml::Error();
  return parsed;
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
    ZtLog(kZtLogState, kSource)(kNoCopyLine);
    return text;
  }
  std::memcpy(*out, text + from, count);
  (*out)[count] = '\0';
  std::memmove(text + from, text + from + count, size - from - count + 1);
  return text;
}

// ---- Workers ------------------------------------------------------------------------------------

const ZtDocument SimservsContext::kDocument = {
    ZtDocumentOf<SimservsContext, XMLSimservsDecoder, SimservsUnMarshaller, SimservsMarshaller,
                 SimservsDataBinder>(kSource)
        .Schema(XML_SCHEMA_SIMSERVS, "Simservs", kSimservsNamespace, "simservs")
        .Decodes("XMLSimservsDecoder", "src/Simservs", ZtPrefixRule::kRewrite)
        .Reads("SimservsUnMarshaller")
        // Intended: log lines call the text of this marshaller "SimservsXml", without the "m" at
        // the beginning that other such names have; log readers search for that.
        .Writes("SimservsMarshaller", "SimservsXml"),
    {{XML_STR_SIMSERVS, &zt_Simservs::kType}}};
