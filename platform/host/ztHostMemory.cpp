// Memory of the Linux host platform: the failable allocator and the memory log.
#include <atomic>
#include <malloc.h>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "ztxml/ztHostPlatform.h"

int ztMemoryLogOff = 1;

namespace {

// ---- Allocation failure -------------------------------------------------------------------

// While this is set, allocations are counted and can be made to fail.
std::atomic<bool> g_counting{false};
std::atomic<long> g_count{0};
std::atomic<long> g_failAt{0};
std::atomic<bool> g_failAfter{false};
std::atomic<long> g_liveBytes{0};
std::atomic<long> g_peakBytes{0};

bool MustFail() {
  if (!g_counting.load(std::memory_order_relaxed)) return false;
  const long number = g_count.fetch_add(1) + 1;
  const long failAt = g_failAt.load();
  return failAt > 0 && (number == failAt || (number > failAt && g_failAfter.load()));
}

void* Allocated(void* pointer) {
  if (g_counting.load(std::memory_order_relaxed) && pointer) {
    const auto size = static_cast<long>(malloc_usable_size(pointer));
    const long live = g_liveBytes.fetch_add(size) + size;
    long peak = g_peakBytes.load();
    while (peak < live && !g_peakBytes.compare_exchange_weak(peak, live)) {
    }
  }
  return pointer;
}

// ---- Memory log ---------------------------------------------------------------------------

std::atomic<bool> g_logging{false};

struct MemoryLog {
  using Entries = std::unordered_map<const void*, zthost::MemoryEntry>;
  std::mutex mutex;
  // An address is in one of them; its node moves, rather than being allocated anew.
  Entries live;
  Entries removed;              // to tell which allocation was removed twice
  zthost::MemoryReport report;  // its `live` stays empty

  void Reset() {
    live.clear();
    removed.clear();
    report = {};
  }
};

MemoryLog& Log() {
  // Never destroyed, because static objects may be released later than it would be.
  static MemoryLog& log = *new MemoryLog;
  return log;
}

}  // namespace

void* __malloc(std::size_t size) { return MustFail() ? nullptr : Allocated(std::malloc(size)); }

void* __calloc(std::size_t count, std::size_t size) {
  return MustFail() ? nullptr : Allocated(std::calloc(count, size));
}

void __free(void* pointer) {
  if (g_counting.load(std::memory_order_relaxed) && pointer) {
    g_liveBytes -= static_cast<long>(malloc_usable_size(pointer));
  }
  std::free(pointer);
}

char* __strdup(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  void* copy = __malloc(size);
  return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

void zthost::FailAllocation(long nth, bool andAfter) {
  g_counting = false;
  g_count = 0;
  g_failAt = nth;
  g_failAfter = andAfter;
  g_liveBytes = 0;
  g_peakBytes = 0;
  g_counting = nth > 0;
}

long zthost::AllocationCount() { return g_count; }

void zthost::CountAllocations() {
  FailAllocation(0);
  g_counting = true;
}

zthost::HeapUse zthost::GetHeapUse() { return {g_count, g_liveBytes, g_peakBytes}; }

void wdmemlog_add(int tag, const char* sourceFile, int line, const void* pointer,
                  std::size_t size) {
  if (!g_logging.load(std::memory_order_relaxed)) return;
  MemoryLog& log = Log();
  const std::lock_guard<std::mutex> lock(log.mutex);
  const zthost::MemoryEntry entry{tag, sourceFile == nullptr ? "" : sourceFile, line, pointer,
                                  size};
  ++log.report.adds;
  log.report.liveBytes += size;
  if (MemoryLog::Entries::node_type again = log.removed.extract(pointer)) {
    again.mapped() = entry;
    log.live.insert(std::move(again));
    return;
  }
  const auto [at, added] = log.live.emplace(pointer, entry);
  if (!added) {
    log.report.liveBytes -= at->second.size;
    log.report.doubleAdds.push_back(entry);
    at->second = entry;
  }
}

void wdmemlog_remove(int tag, const void* pointer) {
  if (!g_logging.load(std::memory_order_relaxed)) return;
  MemoryLog& log = Log();
  const std::lock_guard<std::mutex> lock(log.mutex);
  ++log.report.removes;
  const auto at = log.live.find(pointer);
  if (at == log.live.end()) {
    const auto before = log.removed.find(pointer);
    log.report.badRemoves.push_back(
        before == log.removed.end() ? zthost::MemoryEntry{tag, "", 0, pointer, 0} : before->second);
    return;
  }
  if (at->second.tag != tag) {
    log.report.badRemoves.push_back(at->second);
    log.report.badRemoves.back().tag = tag;
  }
  // Even under a wrong tag: the memory is released, and its address may be recorded again.
  log.report.liveBytes -= at->second.size;
  log.removed.insert(log.live.extract(at));
}

void zthost::EnableMemoryLog(bool on) {
  if (on) ResetMemoryLog();
  g_logging = on;
  ztMemoryLogOff = on ? 0 : 1;
}

zthost::MemoryReport zthost::GetMemoryReport() {
  MemoryLog& log = Log();
  const std::lock_guard<std::mutex> lock(log.mutex);
  MemoryReport report = log.report;
  for (const auto& [pointer, entry] : log.live) report.live.push_back(entry);
  return report;
}

void zthost::ResetMemoryLog() {
  MemoryLog& log = Log();
  const std::lock_guard<std::mutex> lock(log.mutex);
  log.Reset();
}
