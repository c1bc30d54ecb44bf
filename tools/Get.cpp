// ztxml get: one value of a document.
#include <string>

#include "Colour.h"
#include "Commands.h"
#include "Output.h"
#include "Path.h"
#include "Read.h"
#include "Text.h"

namespace {

// An element without a text of its own has an empty one.
bool IsEmptyText(const Target& target) {
  return target.row && target.row->place == ZtPlace::kOwnText &&
         target.row->value == ZtValue::kText;
}

// `buffer` has kZtNumberSize bytes.
ZtPiece ValueOf(const Target& target, char* buffer) {
  if (target.IsScalar()) {
    return ZtTextOf(*target.row, ZtHeld(*target.parent, *target.row), buffer);
  }
  if (target.pair) return target.pair->getValue();
  const zt_string* text = zt_string::From(target.object);
  return text ? text->getValue() : nullptr;
}

int Print(const Document& document, const Target& target) {
  if (target.object && target.own) {
    const bool isRoot = !target.row;
    const char* const name = isRoot ? reflect::ElementNameOf(*target.object) : ZtName(target.name);
    return ShowObject(document, {*target.object, target.own}, name);
  }
  char buffer[kZtNumberSize];
  const ZtPiece value = ValueOf(target, buffer);
  std::string line(value.text ? value.text : "", value.size);
  line += '\n';
  PrintText(line);
  return kDone;
}

}  // namespace

int Get(const std::string& file, const std::string& path, const Reading& reading) {
  Document document;
  if (!ReadOneDocument(file, true, "read", document)) return kCannotRead;
  Tree tree;
  Failure failure;
  if (!ReadTree(document, reading, tree, failure)) return Refuse(document, failure);
  PathFinder finder(*tree.table, *tree.root, false);
  Target target;
  const Finding found = finder.Find(path, target);
  if (found == Finding::kFound) {
    const Target text = target.object && target.own ? OwnTextOf(target) : Target();
    if (text.row) target = text;
    if (target.IsThere() || IsEmptyText(target)) return Print(document, target);
  }
  Complain(document.name, finder.Why());
  return found == Finding::kWrong ? kUsage : kCannotRead;
}
