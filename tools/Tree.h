// Trees of objects, for people and for programs.
#ifndef ZTXML_TOOLS_TREE_H
#define ZTXML_TOOLS_TREE_H

#include <iosfwd>
#include <string>

#include "reflect/Reflect.h"

/// Prints the tree at `root`, which is called `name`, each line after `margin`. False when it was
/// cut, because it is too deep. Without `whole` the line of the root is left out.
bool PrintTree(const reflect::Node& root, const char* name, const std::string& margin,
               std::ostream& to, bool whole = true);
/// Adds the tree as an object of JSON. False when it was cut.
bool AppendJson(const reflect::Node& root, const char* name, std::string& json);

#endif  // ZTXML_TOOLS_TREE_H
