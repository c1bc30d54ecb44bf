// Counts all allocations of a run: those of the library through the host platform layer, those of
// its peers through allocation functions given to each, and all others through operator new, which
// the program replaces.
#ifndef ZTXML_BENCH_COUNTING_H
#define ZTXML_BENCH_COUNTING_H

#include <cstddef>
#include <functional>

namespace bench {

/// As malloc, realloc, strdup and free, counted while a Measure runs. For the peers.
void* CountedMalloc(std::size_t size);
void* CountedRealloc(void* pointer, std::size_t size);
char* CountedStrdup(const char* text);
void CountedFree(void* pointer);

struct Allocations {
  long count = 0;
  long peakBytes = 0;  // the most at one time, as the heap rounds sizes up
};

/// What one call of `run` allocates.
Allocations Measure(const std::function<bool()>& run);

}  // namespace bench

#endif  // ZTXML_BENCH_COUNTING_H
