// Digests by which contents are told apart without being kept.
#ifndef ZTXML_TOOLS_DIGEST_H
#define ZTXML_TOOLS_DIGEST_H

#include <array>
#include <cstdint>
#include <string_view>

/// 128 bits of which equal ones are taken for equal contents: with a key that nobody knows, nobody
/// can make others collide, and by chance they do not.
struct Digest {
  std::uint64_t low = 0;
  std::uint64_t high = 0;

  bool operator==(const Digest& other) const { return low == other.low && high == other.high; }
  bool operator!=(const Digest& other) const { return !(*this == other); }
};

/// A secret of this run.
struct DigestKey {
  DigestKey();

  std::uint64_t first;
  std::uint64_t second;
};

/// Makes a digest of what is added: SipHash with 128 bits, one round a word and three at the end.
class Digester {
 public:
  explicit Digester(const DigestKey& key)
      : m_State{key.first ^ 0x736f6d6570736575, key.second ^ 0x646f72616e646f6d ^ 0xee,
                key.first ^ 0x6c7967656e657261, key.second ^ 0x7465646279746573} {}

  void Add(std::uint64_t word) {
    m_State[3] ^= word;
    Round();
    m_State[0] ^= word;
  }
  void Add(const Digest& digest) {
    Add(digest.low);
    Add(digest.high);
  }
  /// With its size, so that texts in a row are told apart.
  void Add(std::string_view text);
  Digest Done();

 private:
  static std::uint64_t Rotated(std::uint64_t word, unsigned bits) {
    return word << bits | word >> (64 - bits);
  }
  void Round() {
    auto& [a, b, c, d] = m_State;
    a += b;
    b = Rotated(b, 13) ^ a;
    a = Rotated(a, 32);
    c += d;
    d = Rotated(d, 16) ^ c;
    a += d;
    d = Rotated(d, 21) ^ a;
    c += b;
    b = Rotated(b, 17) ^ c;
    c = Rotated(c, 32);
  }
  std::uint64_t Finish(std::uint64_t variant, unsigned index);

  std::array<std::uint64_t, 4> m_State;
};

#endif  // ZTXML_TOOLS_DIGEST_H
