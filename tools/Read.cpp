#include "Read.h"

#include <climits>

#include "Locate.h"
#include "Schemas.h"
#include "Standard.h"
#include "Text.h"

namespace {

// Notes the first start tag.
class RootFinder : public Receiver {
 public:
  int ProcessElement(char* name, char* /*value*/) override {
    if (m_Name.empty()) m_Name = name;
    return 0;
  }
  const std::string& Name() const { return m_Name; }
  /// The name without its prefix.
  std::string LocalName() const { return m_Name.substr(m_Name.find(':') + 1); }

 private:
  std::string m_Name;
};

int RunParser(const std::string& text, XmlDecoderSchema* receiver) {
  XmlDecoder parser;
  parser.SetSchema(receiver);
  // The parser leaves unchanged what it is given.
  return parser.Decode(const_cast<char*>(text.c_str()), static_cast<int>(text.size()));
}

ElementPtr UnMarshall(XMLContext& context, const Document& document) {
  XMLUnMarshaller* unMarshaller = context.createUnMarshaller();
  return ElementPtr(unMarshaller ? unMarshaller->UnMarshall(document.text.c_str()) : nullptr);
}

bool FailAtRoot(const Document& document, const std::string& what, Failure& failure) {
  failure = {"root element", what, document.At(RootOffset(document))};
  return false;
}

// Where the library tells losses.
struct Listener {
  const Document& document;
  std::vector<Loss>& losses;

  static void Hear(const ZtLoss& loss, void* self) {
    const auto& listener = *static_cast<Listener*>(self);
    listener.losses.push_back(
        {loss.kind, loss.path, PositionIn(listener.document, loss.line, loss.column)});
  }
};

// The schema by which to read a document with the root element `root`; null with the failure.
const XMLSchemaInfo* ChooseSchema(const Document& document, const std::string& root,
                                  Failure& failure) {
  const XMLSchemaInfo* named = FindSchemaOfType(document.contentType, root);
  if (named && HasRoot(*named, root)) return named;
  if (named) {
    FailAtRoot(document,
               Quote(root) + " is not a root element of the schema " + named->name +
                   ", which the Content-Type " + document.contentType + " names",
               failure);
    return nullptr;
  }
  const XMLSchemaInfo* schema = FindSchemaOfRoot(root);
  if (!schema) {
    FailAtRoot(document, "no schema has the root element " + Quote(root) + " (see: ztxml schemas)",
               failure);
  }
  return schema;
}

}  // namespace

bool Parse(const Document& document, XmlDecoderSchema* receiver, Failure& failure) {
  if (RunParser(document.text, receiver) == ZT_XML_SUCCESS) return true;
  failure = WhyNotParsed(document);
  return false;
}

Namespaces::Namespaces(const Document& document) {
  const ContextPtr context(XMLFactory::newInstance(XML_SCHEMA_NAMESPACE_RETRIEVAL));
  if (context) m_Tree = UnMarshall(*context, document);
}

std::vector<Declaration> Namespaces::List() const {
  std::vector<Declaration> declarations;
  for (const auto& declared : ZtEach(get() ? get()->getNameSpaceInfo() : nullptr)) {
    const char* uri = declared.getValue();
    declarations.push_back({declared.getName(), uri ? uri : ""});
  }
  return declarations;
}

namespace {

bool ReadExact(const Document& document, const Reading& reading, Tree& tree, Failure& failure) {
  RootFinder finder;
  if (!Parse(document, &finder, failure)) return false;
  const std::string root = finder.LocalName();
  const XMLSchemaInfo* schema = reading.schema;
  if (!schema) schema = ChooseSchema(document, root, failure);
  if (!schema) return false;
  tree.schema = schema;
  tree.namespaces = Namespaces(document);
  tree.context.reset(XMLFactory::newInstance(schema->id));
  if (tree.namespaces.get() && tree.context) {
    tree.context->SetNamespaceBinder(tree.namespaces.get());
    if (reading.losses) {
      Listener listener = {document, *reading.losses};
      tree.context->TellLosses(&Listener::Hear, &listener);
      tree.root = UnMarshall(*tree.context, document);
      tree.context->TellLosses(nullptr, nullptr);
    } else {
      tree.root = UnMarshall(*tree.context, document);
    }
  }
  if (tree.root) return true;
  if (schema->roots[0] && !HasRoot(*schema, root)) {
    return FailAtRoot(
        document, Quote(root) + " is not a root element of the schema " + schema->name, failure);
  }
  failure = WhyRefused(document, *schema, tree.namespaces.get());
  return false;
}

bool ReadStandard(const Document& document, const Reading& reading, Tree& tree, Failure& failure) {
  tree.schema = FindStandardSchema(document, reading.schema, failure);
  if (!tree.schema) return false;
  tree.context.reset(XMLFactory::newInstance(tree.schema->id));
  if (tree.context) {
    XMLContext& context = *tree.context;
    context.UseProfile(XML_PROFILE_STANDARD);
    context.KeepSource(reading.keepsSource);
    context.LimitText(INT_MAX);
    std::vector<Loss> unheard;
    Listener listener = {document, reading.losses ? *reading.losses : unheard};
    if (reading.losses) context.TellLosses(&Listener::Hear, &listener);
    XMLUnMarshaller* unMarshaller = context.createUnMarshaller();
    if (unMarshaller) {
      tree.root.reset(unMarshaller->UnMarshall(document.text.data(), document.text.size()));
    }
    context.TellLosses(nullptr, nullptr);
  }
  if (!tree.root) failure = {"schema decoder", "out of memory"};
  return tree.root != nullptr;
}

}  // namespace

const ZtDocument& Tree::Table() const { return reflect::DocumentOf(*context); }

reflect::Node Tree::Root() const {
  return isStandard ? reflect::StandardRoot(Table(), *root) : reflect::Node(*root);
}

bool ReadTree(const Document& document, const Reading& reading, Tree& tree, Failure& failure) {
  tree.isStandard = reading.isStandard;
  return reading.isStandard ? ReadStandard(document, reading, tree, failure)
                            : ReadExact(document, reading, tree, failure);
}
