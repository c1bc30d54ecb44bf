// ztxml namespaces: the namespace declarations of a document.

#include "Colour.h"
#include "Commands.h"
#include "Output.h"
#include "Read.h"
#include "Text.h"

int PrintNamespaces(const Document& document) {
  Tree tree;
  Failure failure;
  Reading reading;
  reading.schema = &NamespaceSchema();
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document, failure);
  for (const Declaration& declared : DeclarationsIn(tree.root.get())) {
    Out() << (declared.prefix ? Escape(declared.prefix) : "(default)") << '\t'
          << Escape(declared.uri) << '\n';
  }
  return kDone;
}
