#include "ZtArena.h"

#include "ztPlatform.h"

namespace {
constexpr std::size_t kAlignment = alignof(unsigned long long);  // of the strictest member
}

// One allocation of an arena; the first has the store and the text behind it.
struct alignas(kAlignment) ZtArena::Block {
  Block* older;
};

// What is alive of the arena: its pieces, and itself while it takes from the blocks.
struct alignas(kAlignment) ZtArena::Store {
  long live;
  Block* last;
};

namespace {

constexpr std::size_t kLeastBlock = 128;
constexpr std::size_t kFirstBlock = 1024;
constexpr std::size_t kMostBlock = std::size_t{16} * 1024;

// Stands before each piece: the store of its arena, null on the heap.
struct alignas(kAlignment) Head {
  void* store;
};

// With clang's address sanitizer everything is on the heap, where it sees each piece and text.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZT_HEAP_ONLY 1
#endif
#endif
#ifdef ZT_HEAP_ONLY
constexpr bool kHeapOnly = true;
#else
constexpr bool kHeapOnly = false;
#endif

constexpr std::size_t Aligned(std::size_t size) {
  return (size + kAlignment - 1) & ~(kAlignment - 1);
}

void* TakeFromHeap(std::size_t size) {
  if (size > SIZE_MAX - sizeof(Head)) return nullptr;
  void* memory = __malloc(size + sizeof(Head));
  return memory ? new (memory) Head{nullptr} + 1 : nullptr;
}

}  // namespace

ZtArena::~ZtArena() {
  if (m_pStore && --m_pStore->live == 0) Release(m_pStore);
}

char* ZtArena::Keep(const char* text, std::size_t size) {
  if (m_pStore || size > SIZE_MAX / 2) return nullptr;
  m_iNext = size < kLeastBlock ? kLeastBlock : size < kFirstBlock ? size : kFirstBlock;
  const std::size_t room = Aligned(size + 1);
  if (!Grow(room)) return nullptr;
  char* copy = m_pFree;
  m_pFree += room;
  std::memcpy(copy, text, size);
  copy[size] = '\0';
  m_pText = copy;
  m_iTextSize = kHeapOnly ? 0 : size + 1;
  return copy;
}

inline void* ZtArena::Take(std::size_t size) {
  size = Aligned(size + sizeof(Head));
  if (static_cast<std::size_t>(m_pEnd - m_pFree) < size && !Grow(size)) return nullptr;
  auto* head = new (m_pFree) Head{m_pStore};
  m_pFree += size;
  ++m_pStore->live;
  return head + 1;
}

// A new block with room for `size` bytes and, as pieces follow, for more.
bool ZtArena::Grow(std::size_t size) {
  if (m_iNext == 0) m_iNext = kFirstBlock;
  const std::size_t head = sizeof(Block) + (m_pStore ? 0 : sizeof(Store));
  const std::size_t room = m_pStore && size < m_iNext ? m_iNext : size + m_iNext;
  auto* memory = static_cast<char*>(__malloc(head + room));
  if (!memory) return false;
  auto* block = new (memory) Block{m_pStore ? m_pStore->last : nullptr};
  if (m_pStore) {
    m_pStore->last = block;
  } else {
    m_pStore = new (memory + sizeof(Block)) Store{1, block};
  }
  m_pFree = memory + head;
  m_pEnd = m_pFree + room;
  m_iNext = 2 * m_iNext < kMostBlock ? 2 * m_iNext : kMostBlock;
  return true;
}

void ZtArena::Release(Store* store) {
  for (Block* block = store->last; block;) {
    Block* older = block->older;
    __free(block);
    block = older;
  }
}

void* ZtAllocate(std::size_t size, ZtArena* arena) {
  return arena && !kHeapOnly ? arena->Take(size) : TakeFromHeap(size);
}

void ZtFree(void* piece) {
  if (!piece) return;
  Head* head = static_cast<Head*>(piece) - 1;
  auto* store = static_cast<ZtArena::Store*>(head->store);
  if (!store) {
    __free(head);
  } else if (--store->live == 0) {
    ZtArena::Release(store);
  }
}

// ---- The library's objects ----------------------------------------------------------------------

void* ZtHeapObject::operator new(std::size_t size) noexcept { return TakeFromHeap(size); }

void* ZtHeapObject::operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return TakeFromHeap(size);
}

void* ZtHeapObject::operator new(std::size_t size, ZtArena* arena) noexcept {
  return ZtAllocate(size, arena);
}

void ZtHeapObject::operator delete(void* pointer) noexcept { ZtFree(pointer); }

void ZtHeapObject::operator delete(void* pointer, const std::nothrow_t&) noexcept {
  ZtFree(pointer);
}

void ZtHeapObject::operator delete(void* pointer, ZtArena*) noexcept { ZtFree(pointer); }
