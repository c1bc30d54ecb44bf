// Memory, number and text functions of the Linux host platform.
#include <algorithm>
#include <charconv>

#include "ztxml/ztPlatform.h"

namespace {

constexpr int kLogError = 4;
constexpr int kModuleId = 6052;
constexpr std::size_t kNumberSize = 66;  // sign, 64 binary digits, NUL

}  // namespace

void* __memmove(void* to, std::size_t capacity, const void* from, std::size_t size) {
  if (size > capacity) {
    ztLogModuleEventSimple(kLogError, kModuleId, "ztHostText.cpp", __LINE__,
                           "ztDplMemsmove - src1_size buffer size less than src2_size size", 0, 0,
                           0);
    std::exit(1);
  }
  return size == 0 ? to : std::memmove(to, from, size);
}

char* __itoaL(long value, char* buffer, int radix) {
  buffer[0] = '\0';
  if (radix < 2 || radix > 36) return buffer;
  *std::to_chars(buffer, buffer + kNumberSize - 1, value, radix).ptr = '\0';
  return buffer;
}

char* __strlncpy(char* to, std::size_t capacity, const char* from, std::size_t count) {
  if (capacity == 0) return to;
  const std::size_t length = strnlen(from, std::min(count, capacity - 1));
  std::memcpy(to, from, length);
  to[length] = '\0';
  return to;
}

std::size_t __strlcpy(char* to, const char* from, std::size_t capacity) {
  const std::size_t length = std::strlen(from);
  if (capacity == 0) return length;
  const std::size_t copied = std::min(length, capacity - 1);
  std::memcpy(to, from, copied);
  to[copied] = '\0';
  return length;
}

std::size_t __strlcat(char* to, const char* from, std::size_t capacity) {
  // A destination without a NUL within its capacity is full and left alone, as in BSD.
  const std::size_t used = strnlen(to, capacity);
  return used + __strlcpy(to + used, from, capacity - used);
}
