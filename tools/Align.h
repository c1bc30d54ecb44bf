// Which entries of two lists belong together.
#ifndef ZTXML_TOOLS_ALIGN_H
#define ZTXML_TOOLS_ALIGN_H

#include <cstddef>
#include <vector>

constexpr std::size_t kUnmatched = static_cast<std::size_t>(-1);

/// An entry as far as it matters here. Equal numbers are equal contents or keys.
struct AlignEntry {
  std::size_t content = 0;
  std::size_t key = 0;
};

/// For each entry of `before` the index of its match in `after`, in ascending order, or kUnmatched.
/// Entries match by equal content, then by equal keys, then by their places between such matches.
/// The cost is n log n.
std::vector<std::size_t> Align(const std::vector<AlignEntry>& before,
                               const std::vector<AlignEntry>& after);

#endif  // ZTXML_TOOLS_ALIGN_H
