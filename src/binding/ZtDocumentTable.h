// A document as data: what its context, drivers and the factory need to know of it.
#ifndef ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H
#define ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H

#include <initializer_list>
#include <type_traits>

#include "binding/ZtBinding.h"
#include "ztxml/XMLSchemaInfo.h"
#include "ztxml/ZtSchemaDecoder.h"

class XMLContext;
class ZtFactory;
class ZtMarshaller;
class ZtUnMarshaller;
template <class Context, class Base>
class ZtDescribedBy;

// The log lines in which documents differ; null for none.
struct ZtDocumentLines {
  const char* textInput = nullptr;  // the unmarshaller's name, the text to be read
  const char* fileInput = nullptr;  // its name, and the text of a file
  const char* readDone = nullptr;
  const char* readFailed = nullptr;
  const char* nullRoot = nullptr;    // Marshall without a root
  const char* nullClass = nullptr;   // Marshall with a root that has no class name
  const char* rootChosen = nullptr;  // the root's writer has been found
  // A document was written: the marshaller's name, the text.
  const char* written = "<XML Module>: %s XML %s";
  // The root's writer failed: the marshaller's name, the writer's.
  const char* writeFailed = "<XML Module>: %s XML Failed!";
};

inline constexpr ZtDocumentLines kZtPlainLines = {};

// What a decoder does with prefixes. Only a ZtNamespaceDecoder rewrites them.
enum class ZtPrefixRule : std::uint8_t { kExact, kStrip, kRewrite };

// A root element. Marshall takes the objects of its type.
struct ZtRoot {
  ZtNameId name;
  const ZtElementType* type;
  const char* failedAs = nullptr;  // the marshaller, in the line when it cannot be written
};

// The decoder that a driver makes for one reading. Nobody else sees it, so documents that are read
// in the same way share its class: `Base`, which is given the document.
template <class Base>
class ZtDecoderFor final : public Base {
 public:
  explicit ZtDecoderFor(const ZtDocument& document) : Base(document) {}
};
using ZtDecoderMaker = ZtMaker<ZtSchemaDecoder, const ZtDocument&>;
// In place of the class that callers make, if there is nothing in that but the document.
template <class Context, class Base>
constexpr ZtDecoderMaker ZtSharedDecoder(const ZtDecoderOf<Context, Base>* /*of callers*/) {
  return ZtDecoderMaker::Of<ZtDecoderFor<Base>>();
}
constexpr ZtDecoderMaker ZtSharedDecoder(const void* /*of callers*/) { return {nullptr, 0}; }

// What there is to say of a document besides its roots.
struct ZtDocumentFacts {
  const char* source;  // file of the binding, for the logs
  // How context and workers are made; null where the schema has none. Their sizes stand below.
  ZtMaker<XMLContext>::Construct* context;
  ZtDecoderMaker::Construct* decoding;
  ZtMaker<ZtUnMarshaller>::Construct* unMarshalling;
  ZtMaker<ZtMarshaller>::Construct* marshalling;
  ZtMaker<ZtFactory>::Construct* binderFactory;
  XMLSchemaInfo info = {};
  const char* decoder = nullptr;        // class name for the logs
  const char* decoderSource = nullptr;  // file of the decoder, for the logs
  const char* noMemory = nullptr;       // when a name cannot be normalised; %s is the decoder
  // Elements of a foreign namespace, which are opened before they are offered; ends with none.
  const ZtChoice* extensions = nullptr;
  const char* unMarshaller = nullptr;  // class names for the logs
  const char* marshaller = nullptr;
  const char* writtenAs = nullptr;  // the marshaller, in the lines of the results
  const char* failedAs = nullptr;
  const char* textField = nullptr;  // what the logs call the marshaller's text
  const ZtDocumentLines* lines = &kZtPlainLines;
  ZtKnownSpace space = kZtSpacesBegin;  // of the roots, where `info` tells no namespace
  ZtPrefixRule prefixes = ZtPrefixRule::kExact;
  bool declaration = true;  // writes the XML declaration
  bool dropsFirstNewline = false;
  std::uint16_t contextSize = 0, decoderSize = 0, unMarshallerSize = 0, marshallerSize = 0,
                binderFactorySize = 0;

  constexpr ZtMaker<XMLContext> NewContext() const { return {context, contextSize}; }
  constexpr ZtDecoderMaker NewDecoder() const { return {decoding, decoderSize}; }
  constexpr ZtMaker<ZtUnMarshaller> NewUnMarshaller() const {
    return {unMarshalling, unMarshallerSize};
  }
  constexpr ZtMaker<ZtMarshaller> NewMarshaller() const { return {marshalling, marshallerSize}; }
  constexpr ZtMaker<ZtFactory> NewBinderFactory() const {
    return {binderFactory, binderFactorySize};
  }

  // `name` is the context's without "Context"; `uri` the namespace of the roots, null for none.
  constexpr ZtDocumentFacts Schema(eXMLSchemaID id, const char* name, const char* uri,
                                   const char* root = nullptr,
                                   const char* otherRoot = nullptr) const {
    return ZtWith(*this, &ZtDocumentFacts::info,
                  XMLSchemaInfo{id, name, {root, otherRoot}, uri, false});
  }
  constexpr ZtDocumentFacts Decodes(const char* className, const char* file,
                                    ZtPrefixRule rule) const {
    return ZtWith(ZtWith(ZtWith(*this, &ZtDocumentFacts::decoder, className),
                         &ZtDocumentFacts::decoderSource, file),
                  &ZtDocumentFacts::prefixes, rule)
        .NoMemory(rule == ZtPrefixRule::kRewrite
                      ? "%s :: XMLChangeNamespaceTag Malloc unable to allocate memory"
                      : "%s :: XMLRemoveNameSpaceTag: Malloc unable to allocate memory");
  }
  constexpr ZtDocumentFacts NoMemory(const char* line) const {
    return ZtWith(*this, &ZtDocumentFacts::noMemory, line);
  }
  constexpr ZtDocumentFacts Extensions(const ZtChoice* choices) const {
    return ZtWith(*this, &ZtDocumentFacts::extensions, choices);
  }
  constexpr ZtDocumentFacts Reads(const char* unMarshallerName) const {
    return ZtWith(*this, &ZtDocumentFacts::unMarshaller, unMarshallerName);
  }
  // `field` is what the logs call the text. Intended: the classes of marshallers are named in
  // several ways (ReginfoMarshaller, Communication_diversionMarshaller, Conference_infoMarshall,
  // Xcap_ErrorMarshall); callers and log readers use the names.
  constexpr ZtDocumentFacts Writes(const char* marshallerName, const char* field) const {
    ZtDocumentFacts facts = *this;
    facts.info.writes = true;
    facts.marshaller = marshallerName;
    facts.textField = field;
    return facts.ReportsAs(marshallerName, marshallerName);
  }
  // For log readers who know the marshaller by other names when it has written or failed.
  constexpr ZtDocumentFacts ReportsAs(const char* written, const char* failed) const {
    return ZtWith(ZtWith(*this, &ZtDocumentFacts::writtenAs, written), &ZtDocumentFacts::failedAs,
                  failed);
  }
  // A fragment for another document's scope: no declaration, no line break before it.
  constexpr ZtDocumentFacts AsFragment() const {
    return ZtWith(ZtWith(*this, &ZtDocumentFacts::declaration, false),
                  &ZtDocumentFacts::dropsFirstNewline, true);
  }
  // In the standard profile its roots belong to a namespace that the schema's description lacks.
  constexpr ZtDocumentFacts Within(ZtKnownSpace own) const {
    return ZtWith(*this, &ZtDocumentFacts::space, own);
  }
  constexpr ZtDocumentFacts Lines(const ZtDocumentLines& own) const {
    return ZtWith(*this, &ZtDocumentFacts::lines, &own);
  }
};

// A document: what there is to say of it, and its roots.
struct ZtDocument : ZtDocumentFacts {
  std::initializer_list<ZtRoot> roots;
  std::initializer_list<const ZtElementType*> fragments = {};  // what else Marshall takes
};

// Whether two tables are of one document: a program may have copies of the tables that it names.
inline bool ZtIsOneDocument(const ZtDocument& one, const ZtDocument& other) {
  return one.info.id == other.info.id;
}

// What Marshall takes an object of this class for: the root with its type, or the type of a
// fragment; null when it is none.
inline const ZtRoot* ZtRootOf(const ZtDocument& document, const char* className) {
  for (const ZtRoot& root : document.roots) {
    if (ZtIsClass(className, *root.type)) return &root;
  }
  return nullptr;
}
inline const ZtElementType* ZtFragmentOf(const ZtDocument& document, const char* className) {
  for (const ZtElementType* fragment : document.fragments) {
    if (ZtIsClass(className, *fragment)) return fragment;
  }
  return nullptr;
}

// The namespace of a document's roots in the standard profile.
inline ZtSpace ZtSpaceOf(const ZtDocument& document) {
  return document.space ? ZtSpace{document.space} : ZtSpaceOfUri(document.info.nameSpace);
}

// A new context of the document, recorded as the factory's; null without memory.
XMLContext* ZtNewContext(const ZtDocument& document);

// The start of what there is to say. The workers are those of every document unless it has classes
// of its own for callers; `Marshaller` is void when the schema has none.
template <class Context, class Decoder = ZtDecoderOf<Context>,
          class UnMarshaller = ZtDescribedBy<Context, ZtUnMarshaller>,
          class Marshaller = ZtDescribedBy<Context, ZtMarshaller>,
          class DataBinder = ZtDescribedBy<Context, ZtFactory>>
constexpr ZtDocumentFacts ZtDocumentOf(const char* source) {
  ZtMaker<ZtMarshaller> marshaller = {nullptr, 0};
  if constexpr (!std::is_void_v<Marshaller>) marshaller = ZtMaker<ZtMarshaller>::Of<Marshaller>();
  ZtDecoderMaker decoder = ZtSharedDecoder(static_cast<const Decoder*>(nullptr));
  if constexpr (std::is_constructible_v<Decoder, const ZtDocument&>) {
    decoder = ZtDecoderMaker::Of<Decoder>();
  }
  constexpr auto kContext = ZtMaker<XMLContext>::Of<Context>();
  constexpr auto kUnMarshaller = ZtMaker<ZtUnMarshaller>::Of<UnMarshaller>();
  constexpr auto kBinderFactory = ZtMaker<ZtFactory>::Of<DataBinder>();
  ZtDocumentFacts facts = {source,
                           kContext.construct,
                           decoder.construct,
                           kUnMarshaller.construct,
                           marshaller.construct,
                           kBinderFactory.construct};
  facts.contextSize = std::uint16_t{kContext.size};
  facts.decoderSize = static_cast<std::uint16_t>(decoder.size);
  facts.unMarshallerSize = std::uint16_t{kUnMarshaller.size};
  facts.marshallerSize = static_cast<std::uint16_t>(marshaller.size);
  facts.binderFactorySize = std::uint16_t{kBinderFactory.size};
  return facts;
}

// The bytes of `name` that are kept. Intended: decoders add 2 to the size of a name and keep the
// sum in 16 bits, so that a name of 65534 bytes or more is cut short; callers that drive a decoder
// themselves find it so.
inline std::size_t ZtShortNameSize(const char* name) {
  const std::size_t size = __strlen(name);
  const std::size_t room = static_cast<std::uint16_t>(size + 2);
  return size < room ? size : room ? room - 1 : 0;
}

#endif  // ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H
