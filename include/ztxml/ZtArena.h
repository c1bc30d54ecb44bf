// Where the library's objects and texts lie: one by one on the heap, or side by side with the
// document that they were read from.
#ifndef ZTXML_INCLUDE_ZTARENA_H
#define ZTXML_INCLUDE_ZTARENA_H

#include <cstddef>
#include <cstdint>

#include "ztxml/ZtExport.h"

/// Memory for what is read together: the text of a document, the objects made from it, and the
/// texts of these, which are left in place. The text is released with the last object, the objects
/// in blocks of some kilobytes, also after the arena is gone. What lies in one arena belongs to one
/// thread at a time.
class ZT_API ZtArena {
 public:
  ZtArena() = default;
  ~ZtArena();
  ZtArena(const ZtArena&) = delete;
  ZtArena& operator=(const ZtArena&) = delete;

  /// A copy of the `size` bytes of `text`, with a NUL, that lives as long as the arena's objects.
  /// Before the first object, and once. Null without memory.
  char* Keep(const char* text, std::size_t size);
  /// Whether `text` lies in the copy.
  bool Holds(const char* text) const {
    return reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(m_pText) <
           m_iTextSize;
  }

 private:
  friend void* ZtAllocate(std::size_t size, ZtArena* arena);
  friend void ZtFree(void* piece);
  struct Block;

  void* Take(std::size_t size);
  bool Grow(std::size_t size);
  static void Drop(Block* block);
  static void Release(Block* block);
  static void Free(Block* block);

  Block* m_pBlock = nullptr;  // the one that pieces are taken from
  char* m_pFree = nullptr;    // of it: where the next piece goes
  char* m_pEnd = nullptr;
  std::size_t m_iNext = 0;  // bytes of the next block
  const char* m_pText = nullptr;
  std::size_t m_iTextSize = 0;  // of the copy with its NUL; 0 where nothing is left in place
};

/// `size` bytes of `arena`, or of the heap when it is null; null without memory.
ZT_API void* ZtAllocate(std::size_t size, ZtArena* arena = nullptr);
/// Frees what ZtAllocate gave; null is ignored.
ZT_API void ZtFree(void* piece);

#endif  // ZTXML_INCLUDE_ZTARENA_H
