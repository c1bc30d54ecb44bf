// ztxml roundtrip: reads a document and writes it again.
#include <iostream>

#include "Commands.h"
#include "ztXMLDocGenerator.h"

namespace {

// Notes the first start tag.
class RootFinder : public Receiver {
 public:
  int ProcessElement(char* name, char* /*value*/) override {
    if (m_Name.empty()) m_Name = name;
    return 0;
  }
  /// The root element's name without its prefix.
  std::string LocalName() const { return m_Name.substr(m_Name.find(':') + 1); }

 private:
  std::string m_Name;
};

ElementPtr Read(XMLContext& context, const Document& document, const XMLSchemaInfo& schema,
                const std::string& root) {
  ElementPtr tree = ReadTree(context, document);
  if (tree) return tree;
  if (HasRoot(schema, root)) {
    Complain(document.name, std::string("schema decoder: refused by the schema ") + schema.name);
  } else {
    Complain(document.name, "root element: " + Quote(root.c_str()) +
                                " is not a root element of the schema " + schema.name);
  }
  return nullptr;
}

int Write(XMLContext& context, const Document& document, XMLElement* tree, const Log& log) {
  XMLMarshaller* marshaller = context.createMarshaller();
  const char* text = marshaller ? marshaller->Marshall(tree) : nullptr;
  if (!text) {
    Complain(document.name, "cannot be written: it lacks something required (--log 1 tells what)");
    return kCannotWrite;
  }
  std::cout << text;
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
  RootFinder finder;
  if (!Parse(document, &finder)) return kCannotRead;
  const std::string root = finder.LocalName();
  if (!schema) schema = FindSchemaOfRoot(root);
  if (!schema) {
    Complain(document.name, "root element: no schema has the root element " + Quote(root.c_str()) +
                                " (see: ztxml schemas)");
    return kCannotRead;
  }
  if (!schema->writes) {
    Complain(document.name,
             std::string("cannot be written: the schema ") + schema->name + " is only read");
    return kCannotWrite;
  }
  // Some schemas take the document's prefixes from its declarations, which outlive their context.
  const Namespaces namespaces(document);
  const ContextPtr context(XMLFactory::newInstance(schema->id));
  if (!namespaces.get() || !context) {
    Complain(document.name, "schema decoder: out of memory");
    return kCannotRead;
  }
  context->SetNamespaceBinder(namespaces.get());
  const ElementPtr tree = Read(*context, document, *schema, root);
  return tree ? Write(*context, document, tree.get(), log) : kCannotRead;
}
