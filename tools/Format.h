// Documents with their elements on lines of their own.
#ifndef ZTXML_TOOLS_FORMAT_H
#define ZTXML_TOOLS_FORMAT_H

#include <string>

#include "Read.h"
#include "text/ZtEncoding.h"

/// The text of a tree that was read in the standard profile with its source, indented, in UTF-8;
/// and the form that it came in, unless null. False when memory was lacking for the source.
bool Indent(const Tree& tree, std::string& indented, ZtTextForm* form);

#endif  // ZTXML_TOOLS_FORMAT_H
