#include "Align.h"

#include <algorithm>
#include <map>

namespace {

using Entries = std::vector<AlignEntry>;
using Member = std::size_t AlignEntry::*;

// A stretch of both lists.
struct Gap {
  std::size_t before;
  std::size_t beforeEnd;
  std::size_t after;
  std::size_t afterEnd;
};

class Aligner {
 public:
  Aligner(const Entries& before, const Entries& after)
      : m_Before(before), m_After(after), m_Match(before.size(), kUnmatched) {}

  std::vector<std::size_t> Run() {
    MatchInGaps(&AlignEntry::content);
    MatchInGaps(&AlignEntry::key);
    for (const Gap& gap : Gaps()) {
      for (Gap at = gap; at.before < at.beforeEnd && at.after < at.afterEnd;) {
        m_Match[at.before++] = at.after++;
      }
    }
    return m_Match;
  }

 private:
  // What lies between the matches so far.
  std::vector<Gap> Gaps() const {
    std::vector<Gap> gaps;
    Gap gap = {0, 0, 0, 0};
    for (; gap.beforeEnd <= m_Before.size(); ++gap.beforeEnd) {
      const bool end = gap.beforeEnd == m_Before.size();
      if (!end && m_Match[gap.beforeEnd] == kUnmatched) continue;
      gap.afterEnd = end ? m_After.size() : m_Match[gap.beforeEnd];
      if (gap.before < gap.beforeEnd && gap.after < gap.afterEnd) gaps.push_back(gap);
      gap.before = gap.beforeEnd + 1;
      gap.after = gap.afterEnd + 1;
    }
    return gaps;
  }

  // Matches what has equal `by` at the two ends of each gap and, of the rest, what occurs once on
  // either side, as far as its order is equal.
  void MatchInGaps(Member by) {
    for (Gap gap : Gaps()) {
      const auto equal = [&](std::size_t i, std::size_t j) {
        return m_Before[i].*by == m_After[j].*by;
      };
      while (gap.before < gap.beforeEnd && gap.after < gap.afterEnd &&
             equal(gap.before, gap.after)) {
        m_Match[gap.before++] = gap.after++;
      }
      while (gap.before < gap.beforeEnd && gap.after < gap.afterEnd &&
             equal(gap.beforeEnd - 1, gap.afterEnd - 1)) {
        m_Match[--gap.beforeEnd] = --gap.afterEnd;
      }
      MatchUnique(gap, by);
    }
  }

  void MatchUnique(const Gap& gap, Member by) {
    struct Seen {
      std::size_t before = 0;
      std::size_t after = 0;
      std::size_t index = 0;
    };
    std::map<std::size_t, Seen> seen;
    for (std::size_t i = gap.before; i < gap.beforeEnd; ++i) ++seen[m_Before[i].*by].before;
    for (std::size_t j = gap.after; j < gap.afterEnd; ++j) {
      Seen& at = seen[m_After[j].*by];
      ++at.after;
      at.index = j;
    }
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t i = gap.before; i < gap.beforeEnd; ++i) {
      const Seen& at = seen[m_Before[i].*by];
      if (at.before == 1 && at.after == 1) pairs.emplace_back(i, at.index);
    }
    MatchAscending(pairs);
  }

  // Matches the longest part of `pairs` whose second numbers ascend, as all first ones do.
  void MatchAscending(const std::vector<std::pair<std::size_t, std::size_t>>& pairs) {
    std::vector<std::size_t> tails;  // for each length of such a part: its least last pair
    std::vector<std::size_t> previous(pairs.size(), kUnmatched);
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      const auto at = std::lower_bound(
          tails.begin(), tails.end(), pairs[i].second,
          [&](std::size_t tail, std::size_t value) { return pairs[tail].second < value; });
      if (at != tails.begin()) previous[i] = *(at - 1);
      if (at == tails.end()) {
        tails.push_back(i);
      } else {
        *at = i;
      }
    }
    for (std::size_t i = tails.empty() ? kUnmatched : tails.back(); i != kUnmatched;
         i = previous[i]) {
      m_Match[pairs[i].first] = pairs[i].second;
    }
  }

  const Entries& m_Before;
  const Entries& m_After;
  std::vector<std::size_t> m_Match;
};

}  // namespace

std::vector<std::size_t> Align(const std::vector<AlignEntry>& before,
                               const std::vector<AlignEntry>& after) {
  return Aligner(before, after).Run();
}
