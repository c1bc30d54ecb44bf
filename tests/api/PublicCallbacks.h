// Another way from a text to a tree: by the public callbacks, one by one, with every object and
// text on the heap. It must give the tree that an unmarshaller gives, which takes the parser's tags
// whole and leaves texts in place.
#ifndef ZTXML_TESTS_API_PUBLICCALLBACKS_H
#define ZTXML_TESTS_API_PUBLICCALLBACKS_H

#include <string>

#include "base/ZtMemory.h"
#include "reflect/Reflect.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/ZtDocument.h"

/// Passes on what the parser says in its public callbacks.
class PublicCallbacks : public XmlDecoderSchema {
 public:
  explicit PublicCallbacks(XmlDecoderSchema* next) : m_pNext(next) {}
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* element, char* name, char* value) override {
    return m_pNext->ProcessAttribute(element, name, value);
  }
  int ProcessElement(char* name, char* value) override {
    return m_pNext->ProcessElement(name, value);
  }
  int ProcessElementOpened(char* name) override { return m_pNext->ProcessElementOpened(name); }
  void* GetSessionData() override { return m_pNext->GetSessionData(); }

 private:
  XmlDecoderSchema* m_pNext;
};

/// `text` read by public callbacks with the schema of `context`; null on failure. A simservs
/// document comes without its services.
inline XMLElement* ReadThroughCallbacks(const XMLContext& context, std::string text) {
  constexpr char kSource[] = "tests/PublicCallbacks";
  const ZtDocument& document = reflect::DocumentOf(context);
  ZtSchemaDecoder* decoder = document.NewDecoder().Create(kSource, document);
  if (!decoder) return nullptr;
  if (XMLObject* binder = static_cast<const ZtContext&>(context).namespaceBinder()) {
    decoder->SetNameSpaceBinderInfo(binder);
  }
  PublicCallbacks callbacks(decoder);
  XmlDecoder parser;
  parser.SetSchema(&callbacks);
  const int result = parser.Decode(text.data(), static_cast<int>(text.size()));
  XMLElement* root = static_cast<XMLObject*>(decoder->GetSessionData());
  if (result != ZT_XML_SUCCESS || decoder->Failed()) {
    ZtRelease(root);
    root = nullptr;
  }
  ZtRelease(decoder);
  return root;
}

/// `text` read like that and written again; "(null)" when either fails.
inline std::string RoundTripThroughCallbacks(XMLContext& context, const std::string& text) {
  XMLElement* root = ReadThroughCallbacks(context, text);
  XMLMarshaller* writer = context.marshaller() ? context.marshaller() : context.createMarshaller();
  const char* written = writer && root ? writer->Marshall(root) : nullptr;
  const std::string result = written ? written : "(null)";
  XMLFactory::DeleteElement(root);
  return result;
}

#endif  // ZTXML_TESTS_API_PUBLICCALLBACKS_H
