// Memory for the library's objects and texts: each by itself on the heap, or together in an arena
// with the document that they were read from.
#ifndef ZTXML_INCLUDE_ZTARENA_H
#define ZTXML_INCLUDE_ZTARENA_H

#include <cstddef>
#include <cstdint>

#include "ztxml/ZtExport.h"

/// What an arena frees with its last object.
class ZT_API ZtArenaGuest : public ZtHeapObject {
 public:
  virtual ~ZtArenaGuest();
};

/// Memory for one document that is read: a copy of its text, and the objects made from it, whose
/// texts stay in that copy. Objects may outlive the arena: the copy is freed with the last of them,
/// a block of some kilobytes with its own last. One thread at a time may use what lies in an arena.
class ZT_API ZtArena {
 public:
  ZtArena() = default;
  ~ZtArena();
  ZtArena(const ZtArena&) = delete;
  ZtArena& operator=(const ZtArena&) = delete;

  /// Copies the `size` bytes of `text`, adding a NUL and kZtPadding bytes; the copy lives as
  /// long as the arena's objects. Call it once, before the first object is made. Null when out of
  /// memory.
  char* Keep(const char* text, std::size_t size);
  /// Room for a copy of `size` bytes, which the caller writes; otherwise as Keep.
  char* Reserve(std::size_t size);
  /// Takes `guest`, after Keep and before the first object is made: it is freed with the last
  /// object, and all blocks with it, so that until then no two objects have had one address.
  void Host(ZtArenaGuest* guest);
  /// Whether `text` lies in the copy.
  bool Holds(const char* text) const {
    return reinterpret_cast<std::uintptr_t>(text) - reinterpret_cast<std::uintptr_t>(m_pText) <
           m_iTextSize;
  }

 private:
  friend class ZtHeapObject;
  friend void* ZtAllocate(std::size_t size, ZtArena* arena);
  friend void ZtFree(void* piece);
  struct Block;

  ZT_LOCAL static void* Allocate(std::size_t size, ZtArena* arena);
  ZT_LOCAL void* Take(std::size_t size);
  ZT_LOCAL bool Grow(std::size_t size);
  ZT_LOCAL static void Drop(Block* block);
  ZT_LOCAL static void Release(Block* block);
  ZT_LOCAL static void Free(Block* block);

  Block* m_pBlock = nullptr;  // the block that new pieces are taken from
  char* m_pFree = nullptr;    // where the next piece goes in the block
  char* m_pEnd = nullptr;     // of the block
  std::size_t m_iNext = 0;    // size of the next block in bytes
  const char* m_pText = nullptr;
  std::size_t m_iTextSize = 0;  // size of the copy with its NUL; 0 without a copy
};

/// `size` bytes of `arena`, or of the heap when `arena` is null; null when out of memory.
ZT_API void* ZtAllocate(std::size_t size, ZtArena* arena = nullptr);
/// Frees what ZtAllocate gave; null is ignored.
ZT_API void ZtFree(void* piece);

#endif  // ZTXML_INCLUDE_ZTARENA_H
