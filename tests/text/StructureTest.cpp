#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "text/ZtStructure.h"

namespace {

constexpr char kSigns[] = "<>\"'&#";

// Offsets of all bytes of `text` from `from` on that are among `wanted`.
std::vector<std::size_t> Find(const std::string& text, const char* wanted, std::size_t from = 0) {
  std::vector<std::size_t> found;
  for (std::size_t at = text.find_first_of(wanted, from); at != std::string::npos;
       at = text.find_first_of(wanted, at + 1)) {
    found.push_back(at);
  }
  return found;
}

std::string RandomText(std::mt19937& random, std::size_t size) {
  std::string text(size, 'a');
  for (char& c : text) {
    const unsigned kind = random() % 8;
    c = kind == 0 ? '<' : kind < 3 ? kSigns[random() % 6] : static_cast<char>(1 + random() % 255);
  }
  return text;
}

TEST(Structure, EachVersionFindsTheSignsAndNothingElse) {
  std::mt19937 random(1);
  for (const auto find : {ZtFindSignsPlain, ZtFindSignsByVectors, ZtFindSignsFastest}) {
    for (int round = 0; round < 300; ++round) {
      std::string text = RandomText(random, 3 * ZtSigns::kBytes);
      if (round < 256) text[static_cast<std::size_t>(round) % 192] = static_cast<char>(round);
      ZtSigns found[3];
      find(text.data(), 3, found);
      for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isTag = found[i / 64].tags >> i % 64 & 1;
        const bool isSign = found[i / 64].signs >> i % 64 & 1;
        ASSERT_EQ(isTag, text[i] == '<') << int{text[i]};
        ASSERT_EQ(isSign, text[i] && std::strchr(kSigns, text[i])) << int{text[i]};
      }
    }
  }
}

TEST(Structure, WalksFromTagToTagAndFromSignToSign) {
  std::mt19937 random(2);
  for (std::size_t size = 0; size < 1300; size += size < 140 ? 1 : 29) {
    std::string text = RandomText(random, size);
    char* const begin = text.data();
    const char* const end = begin + size;
    ZtStructure structure(begin, end);
    std::size_t from = 0;
    while (char* const tag = structure.NextTag(begin + from)) {
      const auto at = static_cast<std::size_t>(tag - begin);
      ASSERT_EQ(at, text.find('<', from));
      // A tag of some signs, which is entered somewhere and perhaps not walked through to its end.
      const std::size_t entry = at + 1 + random() % 3;
      from = at + 1;
      if (entry > size) continue;
      ZtStructure::Place place = structure.Enter(begin + entry);
      std::vector<std::size_t> signs = Find(text, kSigns, entry);
      signs.resize(std::min<std::size_t>(signs.size(), random() % 40));
      for (const std::size_t sign : signs) {
        ASSERT_EQ(static_cast<std::size_t>(structure.NextSign(place) - begin), sign);
        from = sign + 1;
      }
    }
    EXPECT_EQ(text.find('<', from), std::string::npos);
    ZtStructure last(begin, end);
    ZtStructure::Place place = last.Enter(begin);
    for (std::size_t i = Find(text, kSigns).size(); i; --i) last.NextSign(place);
    EXPECT_EQ(last.NextSign(place), end);
    EXPECT_EQ(last.NextSign(place), end);
  }
}

}  // namespace
