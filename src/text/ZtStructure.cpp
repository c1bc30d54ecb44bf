#include "text/ZtStructure.h"

#include <atomic>

#if defined(__SSE2__)
#include <cpuid.h>
#include <immintrin.h>
#elif defined(__ARM_NEON) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#include <arm_neon.h>
#define ZT_NEON 1
#endif

namespace {

// Two bits tell the signs of one kind apart.
constexpr char kTag = '<';
constexpr char kBracketBits = 2;
constexpr char kBracket = '>';  // and '<'
constexpr char kQuoteBits = 5;
constexpr char kQuote = '\'';  // and '"', '#', '&'

#if defined(__SSE2__)

std::uint64_t Bits(__m128i bytes) { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)); }

// By the vectors that all processors of the kind have.
void ByVectors(const char* text, ZtSigns& found) {
  const auto all = [](char c) { return _mm_set1_epi8(c); };
  std::uint64_t tags = 0;
  std::uint64_t signs = 0;
  for (int i = 0; i < 64; i += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
    const __m128i quotes = _mm_cmpeq_epi8(_mm_or_si128(bytes, all(kQuoteBits)), all(kQuote));
    const __m128i brackets = _mm_cmpeq_epi8(_mm_or_si128(bytes, all(kBracketBits)), all(kBracket));
    tags |= Bits(_mm_cmpeq_epi8(bytes, all(kTag))) << i;
    signs |= Bits(_mm_or_si128(quotes, brackets)) << i;
  }
  found = {tags, signs};
}

#elif defined(ZT_NEON)

// One bit for each of 64 bytes that are all ones or 0: eight neighbours add up to a byte.
std::uint64_t Bits(const uint8x16_t (&bytes)[4]) {
  const uint8x16_t weights = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
  uint8x8_t pairs[4];
  for (int i = 0; i < 4; ++i) {
    const uint8x16_t bits = vandq_u8(bytes[i], weights);
    pairs[i] = vpadd_u8(vget_low_u8(bits), vget_high_u8(bits));
  }
  const uint8x8_t sums = vpadd_u8(vpadd_u8(pairs[0], pairs[1]), vpadd_u8(pairs[2], pairs[3]));
  return vget_lane_u64(vreinterpret_u64_u8(sums), 0);
}

void ByVectors(const char* text, ZtSigns& found) {
  uint8x16_t tags[4];
  uint8x16_t signs[4];
  for (int i = 0; i < 4; ++i) {
    const uint8x16_t bytes = vld1q_u8(reinterpret_cast<const unsigned char*>(text) + 16 * i);
    const uint8x16_t quotes = vceqq_u8(vorrq_u8(bytes, vdupq_n_u8(kQuoteBits)), vdupq_n_u8(kQuote));
    const uint8x16_t brackets =
        vceqq_u8(vorrq_u8(bytes, vdupq_n_u8(kBracketBits)), vdupq_n_u8(kBracket));
    tags[i] = vceqq_u8(bytes, vdupq_n_u8(kTag));
    signs[i] = vorrq_u8(quotes, brackets);
  }
  found = {Bits(tags), Bits(signs)};
}

#else

void ByVectors(const char* text, ZtSigns& found) { ZtFindSignsPlain(text, 1, &found); }

#endif

#if defined(__x86_64__) && defined(__SSE2__)

[[gnu::target("avx2")]] std::uint64_t WideBits(__m256i first, __m256i second) {
  return static_cast<std::uint32_t>(_mm256_movemask_epi8(first)) |
         std::uint64_t{static_cast<std::uint32_t>(_mm256_movemask_epi8(second))} << 32;
}

[[gnu::target("avx2")]] void ByWideVectors(const char* text, std::size_t count, ZtSigns* found) {
  const __m256i tag = _mm256_set1_epi8(kTag);
  const __m256i quoteBits = _mm256_set1_epi8(kQuoteBits);
  const __m256i quote = _mm256_set1_epi8(kQuote);
  const __m256i bracketBits = _mm256_set1_epi8(kBracketBits);
  const __m256i bracket = _mm256_set1_epi8(kBracket);
  for (const ZtSigns* const end = found + count; found != end; ++found, text += 64) {
    __m256i tags[2];
    __m256i signs[2];
    for (std::size_t i = 0; i < 2; ++i) {
      const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text + 32 * i));
      tags[i] = _mm256_cmpeq_epi8(bytes, tag);
      signs[i] = _mm256_or_si256(_mm256_cmpeq_epi8(_mm256_or_si256(bytes, quoteBits), quote),
                                 _mm256_cmpeq_epi8(_mm256_or_si256(bytes, bracketBits), bracket));
    }
    *found = {WideBits(tags[0], tags[1]), WideBits(signs[0], signs[1])};
  }
}

// Whether the processor has the vectors and the system keeps their registers. (What compilers offer
// for that brings a function that runs when the library is loaded.)
bool HasWideVectors() {
  constexpr unsigned kRegisters = 6;
  unsigned a = 0;
  unsigned b = 0;
  unsigned c = 0;
  unsigned d = 0;
  if (!__get_cpuid(1, &a, &b, &c, &d) || !(c & bit_OSXSAVE) || !(c & bit_AVX)) return false;
  unsigned kept = 0;
  __asm__("xgetbv" : "=a"(kept), "=d"(d) : "c"(0));
  if ((kept & kRegisters) != kRegisters) return false;
  return __get_cpuid_count(7, 0, &a, &b, &c, &d) && (b & bit_AVX2);
}

// Which version this processor is to have is found by the first call of all.
void ChooseVersion(const char* text, std::size_t count, ZtSigns* found);
std::atomic<ZtFindSigns*> s_pVersion{ChooseVersion};

void ChooseVersion(const char* text, std::size_t count, ZtSigns* found) {
  ZtFindSigns* const version = HasWideVectors() ? ByWideVectors : ZtFindSignsByVectors;
  s_pVersion.store(version, std::memory_order_relaxed);
  version(text, count, found);
}

#endif

}  // namespace

void ZtFindSignsPlain(const char* text, std::size_t count, ZtSigns* found) {
  for (; count; --count, ++found, text += ZtSigns::kBytes) {
    *found = {0, 0};
    for (unsigned i = 0; i < ZtSigns::kBytes; ++i) {
      const bool isSign = (text[i] | kQuoteBits) == kQuote || (text[i] | kBracketBits) == kBracket;
      found->tags |= std::uint64_t{text[i] == kTag} << i;
      found->signs |= std::uint64_t{isSign} << i;
    }
  }
}

void ZtFindSignsByVectors(const char* text, std::size_t count, ZtSigns* found) {
  for (; count; --count, ++found, text += ZtSigns::kBytes) ByVectors(text, *found);
}

void ZtFindSignsFastest(const char* text, std::size_t count, ZtSigns* found) {
#if defined(__x86_64__) && defined(__SSE2__)
  s_pVersion.load(std::memory_order_relaxed)(text, count, found);
#else
  ZtFindSignsByVectors(text, count, found);
#endif
}

// False at the end. The last block is looked through in a copy, with NULs after its bytes.
bool ZtStructure::LookAhead() {
  const char* const next = m_pBlock + ZtSigns::kBytes;
  if (next >= m_pEnd) return false;
  const auto left = static_cast<std::size_t>(m_pEnd - next);
  const std::size_t whole = left / ZtSigns::kBytes;
  m_pNext = m_pLast = m_Found;
  if (whole) {
    m_pLast += whole < kAhead ? whole : kAhead;
    ZtFindSignsFastest(next, static_cast<std::size_t>(m_pLast - m_pNext), m_Found);
  }
  if (whole < kAhead && left % ZtSigns::kBytes) {
    char rest[ZtSigns::kBytes] = {};
    std::memcpy(rest, next + whole * ZtSigns::kBytes, left % ZtSigns::kBytes);
    ZtFindSignsByVectors(rest, 1, m_Found + whole);
    ++m_pLast;
  }
  return true;
}
