// Which entries of two lists belong together.
#ifndef ZTXML_TOOLS_ALIGN_H
#define ZTXML_TOOLS_ALIGN_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

constexpr std::size_t kUnmatched = static_cast<std::size_t>(-1);

/// A list as far as it matters here: a number for the content of each entry, and one for its key,
/// which is asked for only where contents do not tell. Equal numbers are equal contents or keys.
/// They are digests: what strangers have written does not choose them.
struct AlignList {
  std::vector<std::uint64_t> contents;
  std::function<std::uint64_t(std::size_t)> keyOf;
};

/// For each entry of `before` the index of its match in `after`, in ascending order, or kUnmatched.
/// Entries match by equal content, then by equal keys, then by their places between such matches.
/// The cost is linear, but for the order of what has changed places: n log n.
std::vector<std::size_t> Align(const AlignList& before, const AlignList& after);

#endif  // ZTXML_TOOLS_ALIGN_H
