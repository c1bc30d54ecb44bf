// Reading and writing a document as the library does, and why it was refused.
#ifndef ZTXML_TOOLS_READ_H
#define ZTXML_TOOLS_READ_H

#include <memory>
#include <string>
#include <vector>

#include "Document.h"
#include "reflect/Reflect.h"
#include "ztxml/XMLFactory.h"
#include "ztxml/document.h"

struct ElementDeleter {
  void operator()(XMLElement* element) const { XMLFactory::DeleteElement(element); }
};
using ElementPtr = std::unique_ptr<XMLElement, ElementDeleter>;

/// How a document is to be read.
struct Reading {
  const XMLSchemaInfo* schema = nullptr;  ///< null: chosen by its content type or root element
  bool isStandard = false;                ///< in the standard profile
  bool keepsSource = false;               ///< so that it can be updated in place
  Skipping skipping = Skipping::kTold;    ///< what becomes of messages without a document
  /// Gets what the types do not keep of a document that is read, unless null.
  std::vector<ztxml::Loss>* losses = nullptr;
};

/// A document that was read.
struct Tree {
  const XMLSchemaInfo* schema = nullptr;
  const ZtDocument* table = nullptr;  ///< the schema's record
  bool isStandard = false;
  ElementPtr namespaces;  ///< those of its text, where the exact profile writes it with them
  ElementPtr root;

  /// The root as the profile has it that it was read in.
  reflect::Node Root() const;
  /// Writes the document, or updates the one that it was read from. False with the failure.
  bool Write(std::string& text, Failure& failure) const;
  bool Update(std::string& text, Failure& failure) const;
};

/// Reads the document. False with the failure.
bool ReadTree(const Document& document, const Reading& reading, Tree& tree, Failure& failure);

/// A namespace declaration; the prefix is null for the default namespace.
struct Declaration {
  const char* prefix;
  const char* uri;
};
/// The schema that every document can be read by, for its declarations.
const XMLSchemaInfo& NamespaceSchema();
/// Those of a document that was read so, in its order; none for null.
std::vector<Declaration> DeclarationsIn(XMLElement* namespaces);

#endif  // ZTXML_TOOLS_READ_H
