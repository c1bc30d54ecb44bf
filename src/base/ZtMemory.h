// Creation and release of the objects that the memory log tracks.
#ifndef ZTXML_SRC_BASE_ZTMEMORY_H
#define ZTXML_SRC_BASE_ZTMEMORY_H

#include "ztxml/ZtArena.h"
#include "ztxml/ztPlatform.h"

enum ZtMemoryTag : int { kZtTagStackNode = 1, kZtTagDocument = 14 };

// Whether the memory log is off, so that nothing needs to be found out for it.
inline bool ZtRecordsNothing() { return &ztMemoryLogOff && ztMemoryLogOff; }

// Calls the memory log, unless it is off: a call costs more than the test.
inline void ZtRecord(int tag, const char* source, int line, const void* object, std::size_t size) {
  if (ZtRecordsNothing()) return;
  wdmemlog_add(tag, source, line, object, size);
}
inline void ZtWithdraw(int tag, const void* object) {
  if (ZtRecordsNothing()) return;
  wdmemlog_remove(tag, object);
}

// Records an object that was just made. Null passes through, so a failed `new` needs no test.
template <class T>
T* ZtTrack(T* object, std::size_t size, const char* source, int line) {
  if (object) ZtRecord(kZtTagDocument, source, line, object, size);
  return object;
}

// Where something is made: the file under which it is recorded, and the arena, null for the heap.
struct ZtSource {
  const char* file;
  ZtArena* arena;

  constexpr ZtSource(const char* f, ZtArena* a = nullptr)  // NOLINT(google-explicit-constructor)
      : file(f), arena(a) {}
};

// A new, recorded T, or null when there is no memory.
template <class T>
T* ZtCreate(const ZtSource& source, int line = __builtin_LINE()) {
  return ZtTrack(new (source.arena) T, sizeof(T), source.file, line);
}

// Withdraws an object from the memory log and deletes it through its (virtual) destructor.
template <class T>
void ZtRelease(T* object) {
  if (!object) return;
  ZtWithdraw(kZtTagDocument, object);
  delete object;
}

// For tables: makes objects of a class that only Of<T> knows, recorded as ZtCreate records them.
// The memory is taken here, so that the function of each class does nothing but construct.
template <class Base, class... Argument>
struct ZtMaker {
  using Construct = Base*(void* memory, Argument... argument);

  Construct* construct;
  std::size_t size;

  template <class T>
  static constexpr ZtMaker Of() {
    static_assert(alignof(T) <= alignof(unsigned long long), "pieces are aligned for no more");
    if constexpr (sizeof...(Argument) == 0) {
      // Without parentheses, with which all of the object would be cleared before.
      return {[](void* memory) -> Base* { return ::new (memory) T; }, sizeof(T)};
    } else {
      return {
          [](void* memory, Argument... argument) -> Base* { return ::new (memory) T(argument...); },
          sizeof(T)};
    }
  }
  Base* Create(const ZtSource& source, Argument... argument, int line = __builtin_LINE()) const {
    return ZtTrack(Make(source.arena, argument...), size, source.file, line);
  }
  // Without a record.
  Base* Make(ZtArena* arena, Argument... argument) const {
    void* const memory = construct ? ZtAllocate(size, arena) : nullptr;
    return memory ? construct(memory, argument...) : nullptr;
  }
};

#endif  // ZTXML_SRC_BASE_ZTMEMORY_H
