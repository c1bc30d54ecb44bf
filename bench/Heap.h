// What the heap is asked for, by the library and by its peers alike: the program replaces malloc.
#ifndef ZTXML_BENCH_HEAP_H
#define ZTXML_BENCH_HEAP_H

#include <functional>

namespace bench {

struct HeapUse {
  long allocations = 0;
  long peak = 0;  // the most bytes at one time, as the heap rounds sizes up
};

/// What `run` asks for. Where it frees what was there before, that counts too.
HeapUse MeasureHeap(const std::function<bool()>& run);

}  // namespace bench

#endif  // ZTXML_BENCH_HEAP_H
