// Where the library's objects and texts lie: one by one on the heap, or side by side in the arena
// of the document that they were read from.
#ifndef ZTXML_INCLUDE_ZTARENA_H
#define ZTXML_INCLUDE_ZTARENA_H

#include <cstddef>

#include "ZtExport.h"

/// Memory for what is read together. Every piece is freed on its own, by ZtFree, also after the
/// arena is gone; a block of the arena is released with the last piece in it. The pieces of one
/// arena belong to one thread at a time.
class ZT_API ZtArena {
 public:
  ZtArena() = default;
  ~ZtArena() { Retire(); }
  ZtArena(const ZtArena&) = delete;
  ZtArena& operator=(const ZtArena&) = delete;

  /// Tells before the first piece how large the document is, so that a small one takes little.
  void Expect(std::size_t bytes);

 private:
  friend void* ZtAllocate(std::size_t size, ZtArena* arena);
  friend void ZtFree(void* piece);
  struct Block;

  void* Take(std::size_t size);
  void Retire();

  Block* m_pBlock = nullptr;  // the one that pieces are taken from
  std::size_t m_iUsed = 0;    // bytes of it
  long m_iTaken = 0;          // pieces of it
  std::size_t m_iNext = 0;    // bytes of the next one
};

/// `size` bytes of `arena`, or of the heap when it is null; null without memory.
ZT_API void* ZtAllocate(std::size_t size, ZtArena* arena = nullptr);
/// Frees what ZtAllocate gave; null is ignored.
ZT_API void ZtFree(void* piece);

#endif  // ZTXML_INCLUDE_ZTARENA_H
