// Numbers in decimal, two digits at a time.
#ifndef ZTXML_SRC_BASE_ZTDIGITS_H
#define ZTXML_SRC_BASE_ZTDIGITS_H

#include <cstddef>
#include <cstdint>

constexpr std::size_t kZtMostDigits = 20;    // of a number of 64 bits
constexpr std::size_t kZtMostDigits32 = 10;  // of one of 32 bits

// Writes `number` at `to` without a NUL. Returns the end of its digits.
[[gnu::returns_nonnull]] char* ZtPutDigits(char* to, std::uint32_t number);
[[gnu::returns_nonnull]] char* ZtPutDigits64(char* to, std::uint64_t number);

#endif  // ZTXML_SRC_BASE_ZTDIGITS_H
