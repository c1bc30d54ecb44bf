// Controls of the Linux host platform: what tests and tools need to observe the library's log and
// memory and to make its allocations fail. A device's platform layer has no such header.
#ifndef ZTXML_PLATFORM_HOST_ZTHOSTPLATFORM_H
#define ZTXML_PLATFORM_HOST_ZTHOSTPLATFORM_H

#include <cstddef>
#include <string>
#include <vector>

#include "ztxml/ztPlatform.h"

namespace zthost {

// ---- Log ----------------------------------------------------------------------------------

/// One formatted log line; valid only during the call of the sink.
struct LogLine {
  int level;
  int moduleId;
  const char* sourceFile;
  int line;
  const char* text;  ///< formatted, NUL-terminated, whole
};

/// Receives every log line of level `minLevel` and above on the thread that logs it.
using LogSink = void (*)(const LogLine& line, void* user);

/// Installs `sink` (null: discard, the default; a discarded line costs one test and is not
/// formatted). Not to be called while other threads log.
ZT_PLATFORM_API void SetLogSink(LogSink sink, void* user = nullptr, int minLevel = 1);

// ---- Memory log ---------------------------------------------------------------------------

/// One allocation recorded and not yet removed, or one faulty removal.
struct MemoryEntry {
  int tag;
  std::string sourceFile;
  int line;
  const void* pointer;
  std::size_t size;
};

/// What the memory log holds.
struct MemoryReport {
  std::size_t adds = 0;                 ///< calls of wdmemlog_add since it was switched on
  std::size_t removes = 0;              ///< calls of wdmemlog_remove since it was switched on
  std::size_t liveBytes = 0;            ///< bytes of the live entries
  std::vector<MemoryEntry> live;        ///< leaks, when nothing should be alive
  std::vector<MemoryEntry> doubleAdds;  ///< a pointer added that was already recorded
  std::vector<MemoryEntry>
      badRemoves;  ///< removed twice, under another tag, or never added (no file)
};

/// Switches the live table on (empty) or off (the default: a call costs one test).
ZT_PLATFORM_API void EnableMemoryLog(bool on);
/// A copy of the table and its counts.
ZT_PLATFORM_API MemoryReport GetMemoryReport();
/// Empties the table and sets its counts to 0.
ZT_PLATFORM_API void ResetMemoryLog();

// ---- Allocation failure -------------------------------------------------------------------

/// Makes the `nth` allocation from now (1: the next) fail, and all later ones if `andAfter`; 0 lets
/// all succeed again. Counts __malloc, __calloc and __strdup of all threads, and so every `new` of
/// a library class.
ZT_PLATFORM_API void FailAllocation(long nth, bool andAfter = false);
/// Allocations asked for since the last FailAllocation (only counted while it is armed or after
/// CountAllocations).
ZT_PLATFORM_API long AllocationCount();
/// Starts counting at 0 without making anything fail.
ZT_PLATFORM_API void CountAllocations();

/// What was allocated while allocations were counted, in bytes as the heap rounds sizes up.
struct HeapUse {
  long allocations = 0;
  long liveBytes = 0;  ///< less than 0 when more was released than allocated since
  long peakBytes = 0;  ///< the most that was live at one time
};
ZT_PLATFORM_API HeapUse GetHeapUse();

}  // namespace zthost

#endif  // ZTXML_PLATFORM_HOST_ZTHOSTPLATFORM_H
