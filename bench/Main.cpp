// Measures the library beside its peers.
//
//   ztxml_bench count [PATTERN]    instructions: to be run by valgrind --tool=callgrind, which
//   leaves
//                                  a dump for each case; prints a line for each with its name, its
//                                  bytes and how often it was run, parted by tabs
//   ztxml_bench heap [PATTERN]     prints the name, bytes, allocations and most bytes of each case
//   ztxml_bench time [--benchmark_...]
//   ztxml_bench peers              prints who the peers are
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <regex.h>
#include <valgrind/callgrind.h>

#include "Cases.h"
#include "Heap.h"
#include "Peers.h"

namespace {

using bench::Case;

int Failed(const Case& one) {
  std::fprintf(stderr, "bench: %s failed\n", one.name.c_str());
  return 2;
}

int Count(const Case& one) {
  const int runs = one.bytes > 100000 ? 1 : 4;
  bool isDone = one.run() && one.run();  // so that what is kept between runs is there
  CALLGRIND_ZERO_STATS;
  for (int i = 0; i < runs; ++i) isDone = one.run() && isDone;
  CALLGRIND_DUMP_STATS_AT(one.name.c_str());
  std::printf("%s\t%zu\t%d\n", one.name.c_str(), one.bytes, runs);
  return isDone ? 0 : Failed(one);
}

int Weigh(const Case& one) {
  if (!one.run()) return Failed(one);
  const bench::HeapUse use = bench::MeasureHeap(one.run);
  std::printf("%s\t%zu\t%ld\t%ld\n", one.name.c_str(), one.bytes, use.allocations, use.peak);
  return 0;
}

int ForEach(const std::vector<Case>& cases, const char* pattern, int (*measure)(const Case& one)) {
  regex_t wanted;
  if (regcomp(&wanted, pattern, REG_EXTENDED | REG_NOSUB) != 0) return 2;
  int status = 0;
  for (const Case& one : cases) {
    if (regexec(&wanted, one.name.c_str(), 0, nullptr, 0) != 0) continue;
    status = measure(one);
    if (status != 0) break;
  }
  regfree(&wanted);
  return status;
}

int Time(const std::vector<Case>& cases, int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  for (const Case& one : cases) {
    if (!one.timed) continue;
    benchmark::RegisterBenchmark(one.name.c_str(), [&one](benchmark::State& state) {
      bool isDone = true;
      for (auto _ : state) isDone = one.run() && isDone;
      if (!isDone) state.SkipWithError("a run failed");
    });
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const char* const what = argc > 1 ? argv[1] : "";
  const char* const pattern = argc > 2 ? argv[2] : "";
  if (!std::strcmp(what, "peers")) {
    std::puts(bench::PeerVersions().c_str());
    return 0;
  }
  const std::vector<Case> cases = bench::MakeCases();
  if (!std::strcmp(what, "count")) return ForEach(cases, pattern, Count);
  if (!std::strcmp(what, "heap")) return ForEach(cases, pattern, Weigh);
  if (!std::strcmp(what, "time")) return Time(cases, argc - 1, argv + 1);
  std::fputs("usage: ztxml_bench count|heap|time|peers\n", stderr);
  return 2;
}
