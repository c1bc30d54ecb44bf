// ztxml roundtrip: reads a document and writes it again.
#include <iostream>
#include <unistd.h>

#include "Commands.h"
#include "Read.h"
#include "Text.h"
#include "ztXMLDocGenerator.h"

namespace {

// Documents may hold what a terminal takes for commands.
void Print(const char* text) {
  if (isatty(STDOUT_FILENO)) {
    std::cout << EscapeControls(text);
  } else {
    std::cout << text;
  }
}

int Write(XMLContext& context, const Document& document, XMLElement* tree, const Log& log) {
  XMLMarshaller* marshaller = context.createMarshaller();
  const char* text = marshaller ? marshaller->Marshall(tree) : nullptr;
  if (!text) {
    Complain(document.name, "cannot be written: it lacks something required (--log 1 tells what)");
    return kCannotWrite;
  }
  Print(text);
  if (log.DocumentCut()) {
    Complain(document.name,
             "output cut at " + std::to_string(ZtXMLDocGenerator::kBufferSize - 1) + " characters");
    return kCannotWrite;
  }
  // Some writers go on behind an element that lacks something required.
  if (IsWellFormed(text)) return kDone;
  Complain(document.name,
           "output not well formed: something required is missing (--log 4 tells what)");
  return kCannotWrite;
}

}  // namespace

int RoundTrip(const Document& document, const XMLSchemaInfo* schema, const Log& log) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, schema, tree, failure)) return Refuse(document.name, failure);
  if (!tree.schema->writes) {
    Complain(document.name,
             std::string("cannot be written: the schema ") + tree.schema->name + " is only read");
    return kCannotWrite;
  }
  return Write(*tree.context, document, tree.root.get(), log);
}
