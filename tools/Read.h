// Reading a document as the library does, and telling where and why it was refused.
#ifndef ZTXML_TOOLS_READ_H
#define ZTXML_TOOLS_READ_H

#include <memory>
#include <string>
#include <vector>

#include "Document.h"
#include "XMLFactory.h"
#include "XMLSchemaNameSpaceRetrieval.h"
#include "XmlDecoder.h"

struct ContextDeleter {
  void operator()(XMLContext* context) const { XMLFactory::deleteContext(context); }
};
struct ElementDeleter {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
using ContextPtr = std::unique_ptr<XMLContext, ContextDeleter>;
using ElementPtr = std::unique_ptr<XMLElement, ElementDeleter>;

/// A receiver that ignores every callback.
class Receiver : public XmlDecoderSchema {
 public:
  int ProcessReserved() override { return 0; }
  int ProcessAttribute(char* /*element*/, char* /*name*/, char* /*value*/) override { return 0; }
  int ProcessElement(char* /*name*/, char* /*value*/) override { return 0; }
  int ProcessElementOpened(char* /*name*/) override { return 0; }
  void* GetSessionData() override { return nullptr; }
};

/// Runs the parser over the document; a null `receiver` has it only checked. False with the
/// failure.
bool Parse(const Document& document, XmlDecoderSchema* receiver, Failure& failure);

/// A namespace declaration; the prefix is null for the default namespace.
struct Declaration {
  const char* prefix;
  const char* uri;
};

/// The namespace declarations of a document, as the library retrieves them; `get` gives null when
/// it cannot retrieve them.
class Namespaces {
 public:
  Namespaces() = default;
  explicit Namespaces(const Document& document);
  zt_schema_namespace_retrieval* get() const {
    return static_cast<zt_schema_namespace_retrieval*>(m_Tree.get());
  }
  /// In the order of the document.
  std::vector<Declaration> List() const;

 private:
  ElementPtr m_Tree;
};

/// A document that was read. Some schemas take prefixes from its declarations, which therefore
/// outlive the context.
struct Tree {
  const XMLSchemaInfo* schema = nullptr;
  Namespaces namespaces;
  ContextPtr context;
  ElementPtr root;
};

/// Reads the document by `schema`. When that is null its content type decides, else its root
/// element. False with the failure.
bool ReadTree(const Document& document, const XMLSchemaInfo* schema, Tree& tree, Failure& failure);

#endif  // ZTXML_TOOLS_READ_H
