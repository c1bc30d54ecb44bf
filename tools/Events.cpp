// ztxml events: the parser's callbacks.
#include <string>

#include "Colour.h"
#include "Commands.h"
#include "Json.h"
#include "Output.h"
#include "Read.h"
#include "Text.h"
#include "ztxml/XmlDecoder.h"

namespace {

class EventPrinter : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessElement(char* name, char* value) override {
    Out() << (*name == '/' ? "end " : "start ") << Escape(name);
    if (value) Out() << ' ' << Quote(value);
    Out() << '\n';
    return 0;
  }
  int ProcessAttribute(char* element, char* name, char* value) override {
    Out() << "attribute " << Escape(element) << ' ' << Escape(name) << '=' << Quote(value) << '\n';
    return 0;
  }
  int ProcessElementOpened(char* name) override {
    Out() << "opened " << Escape(name) << '\n';
    return 0;
  }
  void* GetSessionData() override { return nullptr; }
};

// Each as a line of JSON.
class JsonEventPrinter : public EventPrinter {
 public:
  explicit JsonEventPrinter(const std::string& file) : m_File(file) {}

  int ProcessElement(char* name, char* value) override {
    const bool isEnd = *name == '/';
    JsonObject line = Line(isEnd ? "end" : "start", isEnd ? name + 1 : name);
    if (value) line.Text("text", value);
    return Print(line);
  }
  int ProcessAttribute(char* element, char* name, char* value) override {
    return Print(Line("attribute", element).Text("name", name).Text("value", value));
  }
  int ProcessElementOpened(char* name) override { return Print(Line("opened", name)); }

 private:
  JsonObject Line(const char* event, const char* element) const {
    return JsonObject().Text("file", m_File).Text("event", event).Text("element", element);
  }
  static int Print(const JsonObject& line) {
    Out() << line.Done() << '\n';
    return 0;
  }

  const std::string& m_File;
};

}  // namespace

int PrintEvents(const Document& document, bool json) {
  EventPrinter printer;
  JsonEventPrinter jsonPrinter(document.name);
  XmlDecoder parser;
  parser.SetSchema(json ? &jsonPrinter : &printer);
  // The parser leaves unchanged what it is given.
  auto* const text = const_cast<char*>(document.text.c_str());
  const int result = parser.Decode(text, static_cast<int>(document.text.size()));
  if (result == ZT_XML_SUCCESS) return kDone;
  Tree tree;
  Failure failure = {NameOf(ztxml::Code::kNoMemory), "memory is lacking"};  // if nothing else is
  Reading reading;
  reading.schema = &NamespaceSchema();
  ReadTree(document, reading, tree, failure);
  if (json) PrintJson(document.name, failure);
  return Refuse(document, failure);
}
