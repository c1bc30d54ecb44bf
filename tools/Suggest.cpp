#include "Suggest.h"

#include <algorithm>
#include <cstddef>

#include "Text.h"

namespace {

constexpr std::size_t kLongest = 64;  // of words that are compared

// How many characters have to be put in, taken out, replaced, or exchanged with the next one.
std::size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) last[j] = j;
  for (std::size_t i = 1; i <= from.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] != to[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      const bool isExchanged =
          i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isExchanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast.swap(last);
    last.swap(row);
  }
  return last[to.size()];
}

}  // namespace

std::string DidYouMean(const std::string& word, const std::vector<std::string>& known) {
  if (word.empty() || word.size() > kLongest) return "";
  const std::string* nearest = nullptr;
  std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
  for (const std::string& candidate : known) {
    std::size_t distance = Distance(LowerCase(word), LowerCase(candidate));
    // Who stops early means what begins so.
    if (word.size() > 2 && StartsWith(LowerCase(candidate), LowerCase(word))) distance = 1;
    if (distance >= least) continue;
    least = distance;
    nearest = &candidate;
  }
  return nearest ? " (did you mean " + *nearest + "?)" : "";
}
