// Creation and release of the objects that the memory log tracks.
#ifndef ZTXML_SRC_BASE_ZTMEMORY_H
#define ZTXML_SRC_BASE_ZTMEMORY_H

#include "ztPlatform.h"

enum ZtMemoryTag : int { kZtTagStackNode = 1, kZtTagDocument = 14 };

// The memory log, which is not called while it is off.
inline void ZtRecord(int tag, const char* source, int line, const void* object, std::size_t size) {
  if (&ztMemoryLogOff && ztMemoryLogOff) return;
  wdmemlog_add(tag, source, line, object, size);
}
inline void ZtWithdraw(int tag, const void* object) {
  if (&ztMemoryLogOff && ztMemoryLogOff) return;
  wdmemlog_remove(tag, object);
}

// Records an object that was just made. Null passes through, so a failed `new` needs no test.
template <class T>
T* ZtTrack(T* object, std::size_t size, const char* source, int line) {
  if (object) ZtRecord(kZtTagDocument, source, line, object, size);
  return object;
}

// A new, recorded T, or null when there is no memory.
template <class T>
T* ZtCreate(const char* source, int line = __builtin_LINE()) {
  return ZtTrack(new T, sizeof(T), source, line);
}

// Withdraws an object from the memory log and deletes it through its (virtual) destructor.
template <class T>
void ZtRelease(T* object) {
  if (!object) return;
  ZtWithdraw(kZtTagDocument, object);
  delete object;
}

// A T of which only the maker is known, for tables: the object is made, sized and recorded alike.
template <class Base>
struct ZtMaker {
  Base* (*make)();
  std::size_t size;

  template <class T>
  static constexpr ZtMaker Of() {
    return {[]() -> Base* { return new T; }, sizeof(T)};
  }
  Base* Create(const char* source, int line = __builtin_LINE()) const {
    return ZtTrack(make ? make() : nullptr, size, source, line);
  }
};

#endif  // ZTXML_SRC_BASE_ZTMEMORY_H
