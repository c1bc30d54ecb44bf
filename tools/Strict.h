// What a document lacks by its schema.
#ifndef ZTXML_TOOLS_STRICT_H
#define ZTXML_TOOLS_STRICT_H

#include <vector>

#include "Read.h"

/// Adds what the tree, which was read in the standard profile with its source, does not have though
/// its types require it; each stands where its element begins. What `losses` has as a value that is
/// none of its type is not missing.
void FindMissing(const Document& document, const Tree& tree, const std::vector<ztxml::Loss>& losses,
                 std::vector<Failure>& faults);

#endif  // ZTXML_TOOLS_STRICT_H
