// ztxml get: one value of a document.
#include <string>

#include "Commands.h"
#include "Path.h"
#include "Read.h"
#include "Text.h"

namespace {

void PrintValue(ZtPiece value) {
  std::string line(value.text ? value.text : "", value.size);
  line += '\n';
  PrintText(line);
}

int Print(const Document& document, const Target& target) {
  if (target.IsScalar()) {
    char buffer[kZtNumberSize];
    PrintValue(ZtTextOf(*target.row, ZtHeld(*target.parent, *target.row), buffer));
    return kDone;
  }
  if (target.pair) {
    PrintValue(target.pair->getValue());
    return kDone;
  }
  if (!target.own) {
    PrintValue(zt_string::From(target.object)->getValue());
    return kDone;
  }
  const bool isRoot = !target.row;
  const char* const name = isRoot ? reflect::ElementNameOf(*target.object) : ZtName(target.name);
  return ShowObject(document, {*target.object, target.own}, name);
}

}  // namespace

int Get(const std::string& file, const std::string& path, const Reading& reading) {
  Document document;
  if (!ReadOneDocument(file, true, "read", document)) return kCannotRead;
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document.name, failure);
  PathFinder finder(tree.Table(), *tree.root, false);
  Target target;
  const Finding found = finder.Find(path, target);
  const bool isElement = found == Finding::kFound && target.object && target.own;
  const Target text = isElement ? OwnTextOf(target) : Target();
  if (text.row) target = text;
  // A text that is not there is the element's empty one.
  if (text.row && text.row->value == ZtValue::kText && !target.IsThere()) {
    PrintValue("");
    return kDone;
  }
  if (found == Finding::kFound && target.IsThere()) return Print(document, target);
  Complain(document.name, finder.Why());
  return found == Finding::kWrong ? kUsage : kCannotRead;
}
