#include "Counting.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

#include "ztxml/ztHostPlatform.h"

namespace {

// The program has one thread, and a plain test costs the timed runs next to nothing.
bool g_counting = false;
long g_count = 0;
long g_live = 0;
long g_peak = 0;

void* Count(void* pointer) {
  if (g_counting && pointer) {
    ++g_count;
    g_live += static_cast<long>(malloc_usable_size(pointer));
    g_peak = std::max(g_peak, g_live);
  }
  return pointer;
}

void Forget(void* pointer) {
  if (g_counting && pointer) g_live -= static_cast<long>(malloc_usable_size(pointer));
}

void* New(std::size_t size) {
  void* pointer = bench::CountedMalloc(size == 0 ? 1 : size);
  if (!pointer) std::abort();  // there are no exceptions
  return pointer;
}

}  // namespace

namespace bench {

void* CountedMalloc(std::size_t size) { return Count(std::malloc(size)); }

void* CountedRealloc(void* pointer, std::size_t size) {
  Forget(pointer);
  return Count(std::realloc(pointer, size));
}

char* CountedStrdup(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  void* copy = CountedMalloc(size);
  return copy ? static_cast<char*>(std::memcpy(copy, text, size)) : nullptr;
}

void CountedFree(void* pointer) {
  Forget(pointer);
  std::free(pointer);
}

Allocations Measure(const std::function<bool()>& run) {
  g_count = g_live = g_peak = 0;
  zthost::CountAllocations();
  g_counting = true;
  run();
  g_counting = false;
  const zthost::HeapUse host = zthost::GetHeapUse();
  zthost::FailAllocation(0);
  // A run allocates in one of the two ways; if it used both, the sum of the peaks is an upper
  // bound.
  return {g_count + host.allocations, g_peak + host.peakBytes};
}

}  // namespace bench

void* operator new(std::size_t size) { return New(size); }
void* operator new[](std::size_t size) { return New(size); }
void operator delete(void* pointer) noexcept { bench::CountedFree(pointer); }
void operator delete[](void* pointer) noexcept { bench::CountedFree(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { bench::CountedFree(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { bench::CountedFree(pointer); }
