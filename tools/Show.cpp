// ztxml show: the tree of objects that a document is read as.

#include "Colour.h"
#include "Commands.h"
#include "Json.h"
#include "Output.h"
#include "Read.h"
#include "Tree.h"

namespace {

int Cut(const Document& document) {
  return Refuse(document.name, {"tree", "cut at 200 objects within each other"});
}

}  // namespace

int ShowObject(const Document& document, const reflect::Node& object, const char* name) {
  return PrintTree(object, name, "", Out()) ? kDone : Cut(document);
}

int Show(const Document& document, const Reading& reading) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document, failure);
  return ShowObject(document, tree.Root(), reflect::ElementNameOf(*tree.root));
}

int ShowJson(const Document& document, const Reading& reading) {
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) {
    PrintJson(document.name, failure);
    return Refuse(document, failure);
  }
  std::string json;
  const bool whole = AppendJson(tree.Root(), reflect::ElementNameOf(*tree.root), json);
  JsonObject line;
  line.Text("file", document.name).Text("schema", tree.schema->name).Value("document", json);
  Out() << line.Done() << '\n';
  return whole ? kDone : Cut(document);
}
