// Reading a document as the library does, and telling where and why it was refused.
#ifndef ZTXML_TOOLS_READ_H
#define ZTXML_TOOLS_READ_H

#include <memory>
#include <string>
#include <vector>

#include "Document.h"
#include "reflect/Reflect.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/XMLSchemaNameSpaceRetrieval.h"
#include "ztxml/XmlDecoder.h"

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

/// Something in a document that its types do not keep.
struct Loss {
  eZtLoss kind;
  std::string path;
  Position at;
};

/// How a document is to be read.
struct Reading {
  const XMLSchemaInfo* schema = nullptr;  ///< null: chosen by its content type or root element
  bool isStandard = false;                ///< in the standard profile
  bool keepsSource = false;               ///< so that it can be updated in place
  std::vector<Loss>* losses = nullptr;    ///< told of each, unless null
};

/// A document that was read. Some schemas take prefixes from its declarations, which therefore
/// outlive the context.
struct Tree {
  const XMLSchemaInfo* schema = nullptr;
  Namespaces namespaces;
  ContextPtr context;
  ElementPtr root;
  bool isStandard = false;

  /// The schema's record.
  const ZtDocument& Table() const;
  /// The root as the profile has it that it was read in.
  reflect::Node Root() const;
};

/// Reads the document. False with the failure.
bool ReadTree(const Document& document, const Reading& reading, Tree& tree, Failure& failure);

#endif  // ZTXML_TOOLS_READ_H
