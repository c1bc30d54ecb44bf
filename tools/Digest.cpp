#include "Digest.h"

#include <cstring>
#include <random>

namespace {

std::uint64_t RandomWord(std::random_device& source) {
  return std::uint64_t{source()} << 32 | source();
}

}  // namespace

DigestKey::DigestKey() {
  std::random_device source;
  first = RandomWord(source);
  second = RandomWord(source);
}

void Digester::Add(std::string_view text) {
  Add(text.size());
  std::uint64_t word = 0;
  for (; text.size() >= sizeof(word); text.remove_prefix(sizeof(word))) {
    std::memcpy(&word, text.data(), sizeof(word));
    Add(word);
  }
  if (text.empty()) return;
  word = 0;
  std::memcpy(&word, text.data(), text.size());
  Add(word);
}

Digest Digester::Done() {
  Digest digest;
  digest.low = Finish(0xee, 2);
  digest.high = Finish(0xdd, 1);
  return digest;
}

std::uint64_t Digester::Finish(std::uint64_t variant, unsigned index) {
  m_State[index] ^= variant;
  for (int i = 0; i < 3; ++i) Round();
  return m_State[0] ^ m_State[1] ^ m_State[2] ^ m_State[3];
}
