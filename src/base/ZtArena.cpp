#include "ztxml/ZtArena.h"

#include "base/ZtBytes.h"
#include "ztxml/ztPlatform.h"

// The address sanitizer is told which bytes of a block may be touched: the pieces in use and the
// text. It reports all other bytes, as it does on the heap.
#if defined(__SANITIZE_ADDRESS__)
#define ZT_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZT_WATCHED 1
#endif
#endif
#ifdef ZT_WATCHED
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(memory, size) (static_cast<void>(memory), static_cast<void>(size))
#define ASAN_UNPOISON_MEMORY_REGION(memory, size) ASAN_POISON_MEMORY_REGION(memory, size)
#endif

namespace {

constexpr std::size_t kAlignment =
    alignof(unsigned long long);  // what the members of objects need at most
// Blocks follow the size of the text, which tells how large the tree becomes.
constexpr std::size_t kLeastBlock = 512;
constexpr std::size_t kMostBlock = std::size_t{16} * 1024;
constexpr std::size_t kSmallText = 2048;  // a second block would cost more than the room is worth

// Only the sanitizer needs the size: without it this is empty and takes no room.
struct Size {
#ifdef ZT_WATCHED
  std::size_t bytes;
  explicit Size(std::size_t b) : bytes(b) {}
#else
  static constexpr std::size_t bytes = 0;
  explicit Size(std::size_t) {}
#endif
};

// Precedes each piece and tells its block, null for a piece of the heap.
struct alignas(kAlignment) Head : Size {
  void* block;

  Head(void* b, std::size_t size) : Size(size), block(b) {}
};

constexpr std::size_t Aligned(std::size_t size) {
  return (size + kAlignment - 1) & ~(kAlignment - 1);
}

void* TakeFromHeap(std::size_t size) {
  if (size > SIZE_MAX - sizeof(Head)) return nullptr;
  void* memory = __malloc(size + sizeof(Head));
  if (!memory) return nullptr;
  Head* head = new (memory) Head(nullptr, size);
  return head + 1;
}

}  // namespace

// One allocation of an arena. `live` counts its pieces in use, and one more while the arena takes
// pieces from it; at 0 it is freed. The first block, which holds all text, is freed last.
struct alignas(kAlignment) ZtArena::Block : Size {
  Block* first;
  long live = 1;
  long blocks = 0;  // in the first block: the blocks that exist
  // In the first block of an arena with a guest: the guest, and the blocks after the first, each of
  // which has the next in this place. They go together.
  ZtArenaGuest* guest = nullptr;
  Block* chain = nullptr;

  Block(Block* f, std::size_t size) : Size(size), first(f ? f : this) {}
};

ZtArena::~ZtArena() {
  if (m_pBlock) Drop(m_pBlock);
}

ZtArenaGuest::~ZtArenaGuest() = default;

void ZtArena::Host(ZtArenaGuest* guest) { m_pBlock->guest = guest; }

char* ZtArena::Keep(const char* text, std::size_t size) {
  char* copy = Reserve(size);
  if (copy) ZtCopyText(copy, text, size);
  return copy;
}

char* ZtArena::Reserve(std::size_t size) {
  if (m_pBlock || size > SIZE_MAX / 2) return nullptr;
  const std::size_t most = size < kSmallText       ? size
                           : size < 4 * kMostBlock ? size / 4 * 3
                                                   : 3 * kMostBlock;
  m_iNext = most < kLeastBlock ? kLeastBlock : most;
  const std::size_t room = Aligned(size + 1 + kZtPadding);
  if (!Grow(room)) return nullptr;
  char* copy = m_pFree;
  m_pFree += room;
  ASAN_UNPOISON_MEMORY_REGION(copy, size + 1 + kZtPadding);
  copy[size] = '\0';
  m_pText = copy;
  m_iTextSize = size + 1;
  return copy;
}

[[gnu::always_inline]] inline void* ZtArena::Take(std::size_t size) {
  if (size > SIZE_MAX / 2) return nullptr;
  const std::size_t room = Aligned(size + sizeof(Head));
  if (static_cast<std::size_t>(m_pEnd - m_pFree) < room && !Grow(room)) return nullptr;
  ASAN_UNPOISON_MEMORY_REGION(m_pFree, sizeof(Head) + size);
  auto* head = new (m_pFree) Head(m_pBlock, size);
  ASAN_POISON_MEMORY_REGION(head, sizeof(Head));
  m_pFree += room;
  ++m_pBlock->live;
  return head + 1;
}

// Starts a block with room for `size` bytes and for the pieces that follow.
bool ZtArena::Grow(std::size_t size) {
  if (m_iNext == 0) m_iNext = kLeastBlock;
  const std::size_t room = m_pBlock && size < m_iNext ? m_iNext : size + m_iNext;
  auto* memory = static_cast<char*>(__malloc(sizeof(Block) + room));
  if (!memory) return false;
  Block* full = m_pBlock;
  m_pBlock = new (memory) Block(full ? full->first : nullptr, sizeof(Block) + room);
  Block* const first = m_pBlock->first;
  ++first->blocks;
  if (first->guest) {
    m_pBlock->chain = first->chain;
    first->chain = m_pBlock;
  }
  if (full) Drop(full);
  m_pFree = memory + sizeof(Block);
  m_pEnd = m_pFree + room;
  ASAN_POISON_MEMORY_REGION(m_pFree, room);
  if (!full) m_iNext = m_iNext / 3 < kLeastBlock ? kLeastBlock : m_iNext / 3;
  return true;
}

// Counts one piece of the block less.
inline void ZtArena::Drop(Block* block) {
  if (--block->live == 0) Release(block);
}

void ZtArena::Release(Block* block) {
  Block* first = block->first;
  if (block != first && !first->guest) Free(block);
  if (--first->blocks) return;
  delete first->guest;
  while (Block* chained = first->chain) {
    first->chain = chained->chain;
    Free(chained);
  }
  Free(first);
}

void ZtArena::Free(Block* block) {
  ASAN_UNPOISON_MEMORY_REGION(block, block->bytes);
  __free(block);
}

inline void* ZtArena::Allocate(std::size_t size, ZtArena* arena) {
  return arena ? arena->Take(size) : TakeFromHeap(size);
}

void* ZtAllocate(std::size_t size, ZtArena* arena) { return ZtArena::Allocate(size, arena); }

void ZtFree(void* piece) {
  if (!piece) return;
#ifdef ZT_WATCHED
  static_cast<void>(*static_cast<volatile char*>(piece));  // the sanitizer reports a second free
#endif
  Head* head = static_cast<Head*>(piece) - 1;
  ASAN_UNPOISON_MEMORY_REGION(head, sizeof(Head));
  auto* block = static_cast<ZtArena::Block*>(head->block);
  if (!block) {
    __free(head);
    return;
  }
  ASAN_POISON_MEMORY_REGION(head, sizeof(Head) + head->bytes);
  ZtArena::Drop(block);
}

// ---- The library's objects ----------------------------------------------------------------------

void* ZtHeapObject::operator new(std::size_t size) noexcept { return TakeFromHeap(size); }

void* ZtHeapObject::operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return TakeFromHeap(size);
}

void* ZtHeapObject::operator new(std::size_t size, ZtArena* arena) noexcept {
  return ZtArena::Allocate(size, arena);
}

void ZtHeapObject::operator delete(void* pointer) noexcept { ZtFree(pointer); }

void ZtHeapObject::operator delete(void* pointer, const std::nothrow_t&) noexcept {
  ZtFree(pointer);
}

void ZtHeapObject::operator delete(void* pointer, ZtArena*) noexcept { ZtFree(pointer); }
