// ztxml events: the parser's callbacks.
#include <iostream>

#include "Commands.h"
#include "Read.h"
#include "Text.h"
#include "ztxml/XmlDecoder.h"

namespace {

class EventPrinter : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessElement(char* name, char* value) override {
    std::cout << (*name == '/' ? "end " : "start ") << Escape(name);
    if (value) std::cout << ' ' << Quote(value);
    std::cout << '\n';
    return 0;
  }
  int ProcessAttribute(char* element, char* name, char* value) override {
    std::cout << "attribute " << Escape(element) << ' ' << Escape(name) << '=' << Quote(value)
              << '\n';
    return 0;
  }
  int ProcessElementOpened(char* name) override {
    std::cout << "opened " << Escape(name) << '\n';
    return 0;
  }
  void* GetSessionData() override { return nullptr; }
};

}  // namespace

int PrintEvents(const Document& document) {
  EventPrinter printer;
  XmlDecoder parser;
  parser.SetSchema(&printer);
  // The parser leaves unchanged what it is given.
  auto* const text = const_cast<char*>(document.text.c_str());
  const int result = parser.Decode(text, static_cast<int>(document.text.size()));
  if (result == ZT_XML_SUCCESS) return kDone;
  Tree tree;
  Failure failure = {NameOf(ztxml::Code::kNoMemory), "memory is lacking"};  // if nothing else is
  Reading reading;
  reading.schema = &NamespaceSchema();
  ReadTree(document, reading, tree, failure);
  return Refuse(document.name, failure);
}
