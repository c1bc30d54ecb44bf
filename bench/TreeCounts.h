// What a tree holds, counted by walking it: to check that two readers kept equal contents, and to
// relate allocations to them.
#ifndef ZTXML_BENCH_TREECOUNTS_H
#define ZTXML_BENCH_TREECOUNTS_H

#include <cstddef>

#include "Documents.h"

namespace bench {

struct TreeCounts {
  std::size_t pieces = 0;   // contacts, users, rules or entries
  std::size_t objects = 0;  // elements, and attributes that are kept as objects
  std::size_t texts = 0;    // texts that are stored
  std::size_t bytes = 0;    // their bytes

  std::size_t Items() const { return objects + texts; }
};

/// Of a tree that the library read.
TreeCounts CountsOf(Kind kind, XMLElement* root);

}  // namespace bench

#endif  // ZTXML_BENCH_TREECOUNTS_H
