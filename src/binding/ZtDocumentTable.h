// A document as data: what its context, drivers and the factory need to know of it.
#ifndef ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H
#define ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H

#include <type_traits>

#include "XMLFactory.h"
#include "ZtDocument.h"
#include "ZtSchemaDecoder.h"
#include "binding/ZtBinding.h"

// The log lines in which documents differ; null for none.
struct ZtDocumentLines {
  const char* textInput = nullptr;  // the unmarshaller's name, the text to be read
  const char* fileInput = nullptr;  // the same from a file
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

// The types that a marshaller takes: the roots of a document.
template <class... Roots>
inline constexpr const ZtElementType* kZtRoots[] = {&Roots::kType..., nullptr};

struct ZtDocument {
  XMLSchemaInfo info;
  const char* source;  // file of the binding, for the logs
  ZtMaker<XMLContext> newContext;
  ZtMaker<ZtSchemaDecoder> newDecoder;
  ZtMaker<ZtUnMarshaller> newUnMarshaller;
  ZtMaker<ZtMarshaller> newMarshaller;  // without a maker: the schema has none
  ZtMaker<XMLObjectFactory> newBinderFactory;
  const char* unMarshaller = nullptr;  // class names for the logs
  const char* marshaller = nullptr;
  const char* writtenAs = nullptr;  // the marshaller, in the lines of the results
  const char* failedAs = nullptr;
  const char* textField = nullptr;                  // what the logs call the marshaller's text
  const ZtElementType* const* writables = nullptr;  // what Marshall takes, ends with null
  bool declaration = true;                          // writes the XML declaration
  bool dropsFirstNewline = false;
  ZtDocumentLines lines = {};

  constexpr ZtDocument Reads(const char* unMarshallerName) const {
    return ZtWith(*this, &ZtDocument::unMarshaller, unMarshallerName);
  }
  // `types` ends with null; `field` is what the logs call the text. Intended: the classes of
  // marshallers are named in several ways (ReginfoMarshaller, Communication_diversionMarshaller,
  // Conference_infoMarshall, Xcap_ErrorMarshall); callers and log readers use the names.
  constexpr ZtDocument Writes(const ZtElementType* const* types, const char* marshallerName,
                              const char* field) const {
    return ZtWith(ZtWith(ZtWith(*this, &ZtDocument::writables, types), &ZtDocument::marshaller,
                         marshallerName),
                  &ZtDocument::textField, field)
        .ReportsAs(marshallerName, marshallerName);
  }
  // For log readers who know the marshaller by other names when it has written or failed.
  constexpr ZtDocument ReportsAs(const char* written, const char* failed) const {
    return ZtWith(ZtWith(*this, &ZtDocument::writtenAs, written), &ZtDocument::failedAs, failed);
  }
  // A fragment for another document's scope: no declaration, no line break before it.
  constexpr ZtDocument AsFragment() const {
    return ZtWith(ZtWith(*this, &ZtDocument::declaration, false), &ZtDocument::dropsFirstNewline,
                  true);
  }
  constexpr ZtDocument Lines(const ZtDocumentLines& own) const {
    return ZtWith(*this, &ZtDocument::lines, own);
  }
};

// The start of a document's table; `Marshaller` void when the schema has none.
template <class Context, class Decoder, class UnMarshaller, class Marshaller, class DataBinder>
constexpr ZtDocument ZtDocumentOf(const XMLSchemaInfo& info, const char* source) {
  ZtMaker<ZtMarshaller> marshaller = {nullptr, 0};
  if constexpr (!std::is_void_v<Marshaller>) marshaller = ZtMaker<ZtMarshaller>::Of<Marshaller>();
  return {info,
          source,
          ZtMaker<XMLContext>::Of<Context>(),
          ZtMaker<ZtSchemaDecoder>::Of<Decoder>(),
          ZtMaker<ZtUnMarshaller>::Of<UnMarshaller>(),
          marshaller,
          ZtMaker<XMLObjectFactory>::Of<DataBinder>()};
}

#endif  // ZTXML_SRC_BINDING_ZTDOCUMENTTABLE_H
