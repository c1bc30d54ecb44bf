#include "ZtArena.h"

#include "ztPlatform.h"

// The pieces of a block that are not freed yet. While the arena takes from it, frees count below
// zero; when it is retired, what was taken is added, and who brings the sum to zero releases it.
struct ZtArena::Block {
  long live;
  std::size_t size;  // with this head
};

namespace {

constexpr std::size_t kLeastBlock = 128;
constexpr std::size_t kFirstBlock = 1024;
constexpr std::size_t kMostBlock = std::size_t{16} * 1024;
constexpr std::size_t kAlignment = alignof(void*);

// Stands before each piece: its block, or null.
struct Head {
  void* block;
};

// Larger pieces are the heap's; with clang's address sanitizer, which then sees each, all are.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZT_HEAP_ONLY 1
#endif
#endif
#ifdef ZT_HEAP_ONLY
constexpr std::size_t kMostPiece = 0;
#else
constexpr std::size_t kMostPiece = 256;
#endif

}  // namespace

void* ZtArena::Take(std::size_t size) {
  size = (size + sizeof(Head) + kAlignment - 1) & ~(kAlignment - 1);
  if (!m_pBlock || m_pBlock->size - m_iUsed < size) {
    std::size_t room = m_iNext ? m_iNext : kFirstBlock;
    if (room < size + sizeof(Block)) room = size + sizeof(Block);
    auto* block = static_cast<Block*>(__malloc(room));
    if (!block) return nullptr;
    Retire();
    m_pBlock = new (block) Block{0, room};
    m_iUsed = sizeof(Block);
    m_iNext = 2 * room < kMostBlock ? 2 * room : kMostBlock;
  }
  auto* head = new (reinterpret_cast<char*>(m_pBlock) + m_iUsed) Head{m_pBlock};
  m_iUsed += size;
  ++m_iTaken;
  return head + 1;
}

void ZtArena::Expect(std::size_t bytes) {
  m_iNext = bytes < kLeastBlock ? kLeastBlock : bytes < kFirstBlock ? bytes : kFirstBlock;
}

void ZtArena::Retire() {
  if (m_pBlock && (m_pBlock->live += m_iTaken) == 0) __free(m_pBlock);
  m_pBlock = nullptr;
  m_iTaken = 0;
}

void* ZtAllocate(std::size_t size, ZtArena* arena) {
  if (arena && size <= kMostPiece) return arena->Take(size);
  if (size > SIZE_MAX - sizeof(Head)) return nullptr;
  void* memory = __malloc(size + sizeof(Head));
  return memory ? new (memory) Head{nullptr} + 1 : nullptr;
}

void ZtFree(void* piece) {
  if (!piece) return;
  Head* head = static_cast<Head*>(piece) - 1;
  auto* block = static_cast<ZtArena::Block*>(head->block);
  if (!block) {
    __free(head);
  } else if (--block->live == 0) {
    __free(block);
  }
}
