#include "base/ZtDigits.h"

#include <cstring>

namespace {

// The digits of every number below a hundred.
struct DigitPairs {
  char text[200] = {};

  constexpr DigitPairs() {
    for (unsigned i = 0; i < sizeof(text); ++i) {
      text[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
    }
  }
};
constexpr DigitPairs kDigitPairs;

constexpr std::uint32_t kTenToThe4 = 10000;
constexpr std::uint32_t kTenToThe8 = 100000000;

// The hundreds of a number below 10,000, by one short multiplication.
constexpr std::uint32_t Hundreds(std::uint32_t four) { return four * 5243 >> 19; }

inline char* PutPair(char* to, std::uint32_t pair) {
  std::memcpy(to, kDigitPairs.text + std::size_t{2} * pair, 2);
  return to + 2;
}
// Without a zero at its start.
inline char* PutFirstPair(char* to, std::uint32_t pair) {
  if (pair >= 10) return PutPair(to, pair);
  *to = static_cast<char>('0' + pair);
  return to + 1;
}
inline char* PutFour(char* to, std::uint32_t four) {
  const std::uint32_t hundreds = Hundreds(four);
  return PutPair(PutPair(to, hundreds), four - 100 * hundreds);
}
inline char* PutFirstFour(char* to, std::uint32_t four) {
  if (four < 100) return PutFirstPair(to, four);
  const std::uint32_t hundreds = Hundreds(four);
  return PutPair(PutFirstPair(to, hundreds), four - 100 * hundreds);
}
inline char* PutEight(char* to, std::uint32_t eight) {
  const std::uint32_t high = eight / kTenToThe4;
  return PutFour(PutFour(to, high), eight - kTenToThe4 * high);
}

}  // namespace

char* ZtPutDigits(char* to, std::uint32_t number) {
  if (number < kTenToThe4) return PutFirstFour(to, number);
  if (number < kTenToThe8) {
    const std::uint32_t high = number / kTenToThe4;
    return PutFour(PutFirstFour(to, high), number - kTenToThe4 * high);
  }
  return PutEight(PutFirstPair(to, number / kTenToThe8), number % kTenToThe8);
}

char* ZtPutDigits64(char* to, std::uint64_t number) {
  if (number <= UINT32_MAX) return ZtPutDigits(to, static_cast<std::uint32_t>(number));
  to = ZtPutDigits64(to, number / kTenToThe8);
  return PutEight(to, static_cast<std::uint32_t>(number % kTenToThe8));
}
