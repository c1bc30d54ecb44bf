#include "Align.h"

#include <algorithm>
#include <utility>

namespace {

// A stretch of both lists.
struct Gap {
  std::size_t before;
  std::size_t beforeEnd;
  std::size_t after;
  std::size_t afterEnd;

  bool IsOpen() const { return before < beforeEnd && after < afterEnd; }
};

// The numbers of the entries from `first` on.
struct Stretch {
  const std::uint64_t* numbers;
  std::size_t first;

  std::uint64_t operator[](std::size_t index) const { return numbers[index - first]; }
};

// Which numbers occur in a stretch, and where. A hash table of which the numbers are the hashes.
class Occurrences {
 public:
  explicit Occurrences(std::size_t most) {
    std::size_t size = 4;
    while (size < 2 * most) size *= 2;
    m_Slots.resize(size);
    m_Seen.reserve(most);
  }

  struct Seen {
    std::uint64_t number = 0;
    std::uint32_t after = 0;  // the index of the last one there
    bool isRepeatedBefore = false;
    unsigned char timesAfter = 0;  // 2 for more
  };
  void AddBefore(std::uint64_t number) {
    std::uint32_t& slot = SlotOf(number);
    if (slot) {
      m_Seen[slot - 1].isRepeatedBefore = true;
      return;
    }
    m_Seen.push_back({number});
    slot = static_cast<std::uint32_t>(m_Seen.size());
  }
  void AddAfter(std::uint64_t number, std::size_t index) {
    const std::uint32_t slot = SlotOf(number);
    if (!slot) return;
    Seen& seen = m_Seen[slot - 1];
    seen.after = static_cast<std::uint32_t>(index);
    if (seen.timesAfter < 2) ++seen.timesAfter;
  }
  /// Of a number that was added.
  const Seen& Of(std::uint64_t number) { return m_Seen[SlotOf(number) - 1]; }

 private:
  // That of the number, or the free one where it belongs.
  std::uint32_t& SlotOf(std::uint64_t number) {
    std::size_t at = number & (m_Slots.size() - 1);
    while (m_Slots[at] && m_Seen[m_Slots[at] - 1].number != number) {
      at = (at + 1) & (m_Slots.size() - 1);
    }
    return m_Slots[at];
  }

  std::vector<std::uint32_t> m_Slots;  // an index in m_Seen and 1, or 0. A document has fewer
                                       // entries than 2^32 bytes.
  std::vector<Seen> m_Seen;
};

class Aligner {
 public:
  Aligner(const AlignList& before, const AlignList& after)
      : m_Before(before), m_After(after), m_Match(before.contents.size(), kUnmatched) {}

  std::vector<std::size_t> Run() {
    for (const Gap& gap : Gaps()) {
      MatchIn(gap, {m_Before.contents.data(), 0}, {m_After.contents.data(), 0});
    }
    for (const Gap& gap : Gaps()) MatchKeysIn(gap);
    for (const Gap& gap : Gaps()) {
      for (Gap at = gap; at.IsOpen();) m_Match[at.before++] = at.after++;
    }
    return std::move(m_Match);
  }

 private:
  // What lies between the matches so far.
  std::vector<Gap> Gaps() const {
    std::vector<Gap> gaps;
    Gap gap = {0, 0, 0, 0};
    for (; gap.beforeEnd <= m_Match.size(); ++gap.beforeEnd) {
      const bool end = gap.beforeEnd == m_Match.size();
      if (!end && m_Match[gap.beforeEnd] == kUnmatched) continue;
      gap.afterEnd = end ? m_After.contents.size() : m_Match[gap.beforeEnd];
      if (gap.IsOpen()) gaps.push_back(gap);
      gap.before = gap.beforeEnd + 1;
      gap.after = gap.afterEnd + 1;
    }
    return gaps;
  }

  void MatchKeysIn(const Gap& gap) {
    std::vector<std::uint64_t> before;
    std::vector<std::uint64_t> after;
    before.reserve(gap.beforeEnd - gap.before);
    after.reserve(gap.afterEnd - gap.after);
    for (std::size_t i = gap.before; i < gap.beforeEnd; ++i) before.push_back(m_Before.keyOf(i));
    for (std::size_t j = gap.after; j < gap.afterEnd; ++j) after.push_back(m_After.keyOf(j));
    MatchIn(gap, {before.data(), gap.before}, {after.data(), gap.after});
  }

  // Matches what is equal at the two ends of the gap and, of the rest, what occurs once on either
  // side, as far as its order is equal.
  void MatchIn(Gap gap, const Stretch& before, const Stretch& after) {
    while (gap.IsOpen() && before[gap.before] == after[gap.after]) {
      m_Match[gap.before++] = gap.after++;
    }
    while (gap.IsOpen() && before[gap.beforeEnd - 1] == after[gap.afterEnd - 1]) {
      m_Match[--gap.beforeEnd] = --gap.afterEnd;
    }
    if (gap.IsOpen()) MatchUnique(gap, before, after);
  }

  void MatchUnique(const Gap& gap, const Stretch& before, const Stretch& after) {
    Occurrences seen(gap.beforeEnd - gap.before);
    for (std::size_t i = gap.before; i < gap.beforeEnd; ++i) seen.AddBefore(before[i]);
    for (std::size_t j = gap.after; j < gap.afterEnd; ++j) seen.AddAfter(after[j], j);
    Pairs pairs;
    for (std::size_t i = gap.before; i < gap.beforeEnd; ++i) {
      const Occurrences::Seen& at = seen.Of(before[i]);
      if (at.timesAfter == 1 && !at.isRepeatedBefore) {
        pairs.emplace_back(static_cast<std::uint32_t>(i), at.after);
      }
    }
    MatchAscending(pairs);
  }

  using Pairs = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

  // Matches the longest part of `pairs` whose second numbers ascend, as all first ones do.
  void MatchAscending(const Pairs& pairs) {
    constexpr std::uint32_t kNone = static_cast<std::uint32_t>(-1);
    std::vector<std::uint32_t> tails;  // for each length of such a part: its least last pair
    std::vector<std::uint32_t> previous(pairs.size(), kNone);
    for (std::uint32_t i = 0; i < pairs.size(); ++i) {
      const bool isLonger = tails.empty() || pairs[tails.back()].second < pairs[i].second;
      const auto at = isLonger ? tails.end()
                               : std::lower_bound(tails.begin(), tails.end(), pairs[i].second,
                                                  [&](std::uint32_t tail, std::uint32_t value) {
                                                    return pairs[tail].second < value;
                                                  });
      if (at != tails.begin()) previous[i] = *(at - 1);
      if (isLonger) {
        tails.push_back(i);
      } else {
        *at = i;
      }
    }
    for (std::uint32_t i = tails.empty() ? kNone : tails.back(); i != kNone; i = previous[i]) {
      m_Match[pairs[i].first] = pairs[i].second;
    }
  }

  const AlignList& m_Before;
  const AlignList& m_After;
  std::vector<std::size_t> m_Match;
};

}  // namespace

std::vector<std::size_t> Align(const AlignList& before, const AlignList& after) {
  return Aligner(before, after).Run();
}
