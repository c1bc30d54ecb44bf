#include "Heap.h"

#include <algorithm>
#include <cstddef>
#include <malloc.h>

// What malloc and its like are in the C library.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* pointer, std::size_t size);
void __libc_free(void* pointer);
}

namespace {

// The program has one thread, and a plain test costs the other measurements next to nothing.
bool g_counting = false;
bench::HeapUse g_use;
long g_live = 0;

void* Count(void* pointer) {
  if (pointer) {
    ++g_use.allocations;
    g_live += static_cast<long>(malloc_usable_size(pointer));
    g_use.peak = std::max(g_use.peak, g_live);
  }
  return pointer;
}

void Forget(void* pointer) {
  if (pointer) g_live -= static_cast<long>(malloc_usable_size(pointer));
}

}  // namespace

extern "C" {
void* malloc(std::size_t size) {
  return g_counting ? Count(__libc_malloc(size)) : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  return g_counting ? Count(__libc_calloc(count, size)) : __libc_calloc(count, size);
}
void* realloc(void* pointer, std::size_t size) {
  if (!g_counting) return __libc_realloc(pointer, size);
  Forget(pointer);
  return Count(__libc_realloc(pointer, size));
}
void free(void* pointer) {
  if (g_counting) Forget(pointer);
  __libc_free(pointer);
}
}

namespace bench {

HeapUse MeasureHeap(const std::function<bool()>& run) {
  g_use = HeapUse();
  g_live = 0;
  g_counting = true;
  run();
  g_counting = false;
  return g_use;
}

}  // namespace bench
