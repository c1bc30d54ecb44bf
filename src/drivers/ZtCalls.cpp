#include "ztxml/ZtCalls.h"

#include "binding/ZtStandardReader.h"
#include "binding/ZtStandardWriter.h"
#include "drivers/ZtExplain.h"
#include "drivers/ZtStandardDocument.h"
#include "model/ZtOwnership.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"

using ztxml::Stage;

namespace {

// A context for one call.
class Context {
 public:
  explicit Context(const ZtDocument& document) : m_pContext(ZtNewContext(document)) {}
  ~Context() { ZtRelease(m_pContext); }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  explicit operator bool() const { return m_pContext != nullptr; }
  XMLContext* operator->() const { return m_pContext; }

 private:
  XMLContext* m_pContext;
};

XMLElement* ReadExact(const ZtDocument& document, const ZtSettings& settings, ZtPiece text,
                      XMLElement*& namespaces, ztxml::Error& error) {
  const Context context(document);
  if (!context) return nullptr;
  if (document.prefixes == ZtPrefixRule::kRewrite) {
    const Context retrieval(SchemaNamespaceRetrievalContext::kDocument);
    XMLUnMarshaller* const reader = retrieval ? retrieval->createUnMarshaller() : nullptr;
    if (!reader) return nullptr;
    reader->ReportTo(&error);
    namespaces = reader->UnMarshall(text.text, text.size);
    if (!namespaces) return nullptr;
    context->SetNamespaceBinder(static_cast<XMLObject*>(namespaces));
  }
  if (settings.lost && !context->TellLosses(settings.lost, settings.lostContext)) return nullptr;
  XMLUnMarshaller* const reader = context->createUnMarshaller();
  if (!reader) return nullptr;
  reader->ReportTo(&error);
  return reader->UnMarshall(text.text, text.size);
}

char* WriteExact(const ZtDocument& document, XMLElement& root, XMLElement* namespaces,
                 ztxml::Error& error) {
  const Context context(document);
  if (!context) return nullptr;
  if (namespaces) context->SetNamespaceBinder(static_cast<XMLObject*>(namespaces));
  if (!document.info.writes) {
    ZtExplain(error, ztxml::Code::kRefused, Stage::kWriting,
              "documents of this kind are only read");
    return nullptr;
  }
  XMLMarshaller* const writer = context->createMarshaller();
  if (!writer) return nullptr;
  writer->ReportTo(&error);
  const char* const text = writer->Marshall(&root);
  return text ? __strdup(text) : nullptr;
}

void SayNoTree(ztxml::Error& error, Stage stage) {
  ZtExplain(error, ztxml::Code::kRefused, stage, "there is no tree");
}

}  // namespace

XMLElement* ZtReadDocument(const ZtDocument& document, const ZtElementType* type,
                           const ZtSettings& settings, const char* text, std::size_t size,
                           XMLElement*& namespaces, ztxml::Error& error) {
  namespaces = nullptr;
  const ZtPiece whole(text ? text : "", text ? size : 0);
  const bool isStandard = settings.profile == XML_PROFILE_STANDARD;
  XMLElement* root = isStandard ? ZtReadStandard(document, settings, whole, &error, true, type)
                                : ReadExact(document, settings, whole, namespaces, error);
  if (root && type && !ZtIsClass(root->ClassName(), *type)) {
    ZtExplainRoot(error, {document, whole, {}, whole, isStandard, type});
    ZtRelease(root);
    root = nullptr;
  }
  if (root) return root;
  ZtRelease(namespaces);
  namespaces = nullptr;
  if (error.code == ztxml::Code::kNone) ZtExplainNoMemory(error, Stage::kBinding);
  return nullptr;
}

char* ZtWriteDocument(const ZtDocument& document, const ZtSettings& settings, XMLElement* root,
                      XMLElement* namespaces, std::size_t& size, ztxml::Error& error) {
  char* text = nullptr;
  size = 0;
  if (!root) {
    SayNoTree(error, Stage::kWriting);
    return nullptr;
  }
  if (settings.profile == XML_PROFILE_STANDARD) {
    ZtBuffer buffer(settings.mostText);
    if (ZtWriteStandard(document, *root, buffer, &error)) {
      size = buffer.Size();
      text = buffer.Take();
    }
  } else {
    text = WriteExact(document, *root, namespaces, error);
    size = text ? __strlen(text) : 0;
    if (size >= ZtXMLDocGenerator::kBufferSize - 1) {
      ZtExplain(error, ztxml::Code::kTooLong, Stage::kWriting,
                "the exact profile cuts the text where it has no more room");
    } else if (size > settings.mostText) {
      ZtExplain(error, ztxml::Code::kTooLong, Stage::kWriting, kZtTooLong);
    }
  }
  if (!text && error.code == ztxml::Code::kNone) ZtExplainNoMemory(error, Stage::kWriting);
  return text;
}

char* ZtUpdateDocument(const ZtDocument& document, const ZtSettings& settings, XMLElement* root,
                       std::size_t& size, ztxml::Error& error) {
  size = 0;
  if (root) return ZtUpdateStandard(document, settings, *root, size, &error);
  SayNoTree(error, Stage::kUpdating);
  return nullptr;
}

void ZtFreeText(char* text) { __free(text); }

bool ZtFindLosses(const XMLElement& root, ZtLossHandler handler, void* context) {
  const ZtSourceText* const source = ZtOwnership::SourceOf(root);
  if (!source) return false;
  const ZtPiece text = source->Text();
  ZtArena arena;
  char* const copy = arena.Keep(text.text, text.size);
  if (!copy) return false;
  ZtReadOptions options;
  options.lost = handler;
  options.context = context;
  options.original = text;
  options.makes = false;
  ZtStandardReader reader(*source->document, arena, options);
  reader.Read(copy, text.size);
  return reader.Xml().Token() == ZtToken::kDone;
}

XMLElement* ZtMakeObject(const ZtElementType& type, bool withDefaults, ztxml::Error* error) {
  XMLElement* const object = type.Create(type.family->source);
  if (object && withDefaults) ZtSetDefaults(*object, type);
  if (!object && error) ZtExplainNoMemory(*error, Stage::kWriting);
  return object;
}
