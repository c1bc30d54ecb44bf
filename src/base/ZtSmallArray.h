// Arrays that need no heap while they are small.
#ifndef ZTXML_SRC_BASE_ZTSMALLARRAY_H
#define ZTXML_SRC_BASE_ZTSMALLARRAY_H

#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>

#include "ztxml/ztPlatform.h"

// What arrays of all types have in common.
class ZtItems {
 protected:
  ZtItems(void* few, std::uint32_t room) : m_pItems(few), m_iRoom(room) {}

  // Doubles the room. `few` is where the items, each of `size` bytes, are before they are on the
  // heap.
  [[gnu::noinline]] bool Grow(const void* few, std::size_t size) {
    constexpr std::uint32_t kMost = UINT32_MAX / 2;
    if (m_iRoom > kMost || m_iRoom > SIZE_MAX / 2 / size) return false;
    void* memory = __malloc(std::size_t{2} * m_iRoom * size);
    if (!memory) return false;
    std::memcpy(memory, m_pItems, m_iSize * size);
    if (m_pItems != few) __free(m_pItems);
    m_pItems = memory;
    m_iRoom *= 2;
    return true;
  }

  void* m_pItems;
  std::uint32_t m_iSize = 0;
  std::uint32_t m_iRoom;
};

// Items of a plain type, `kFew` of them in the array itself, more on the heap, whose room doubles.
template <class T, std::uint32_t kFew>
class ZtSmallArray : ZtItems {
 public:
  ZtSmallArray() : ZtItems(m_Few, kFew) {}
  ~ZtSmallArray() {
    if (m_pItems != m_Few) __free(m_pItems);
  }
  ZtSmallArray(const ZtSmallArray&) = delete;
  ZtSmallArray& operator=(const ZtSmallArray&) = delete;

  [[gnu::always_inline]] std::uint32_t Size() const { return m_iSize; }
  [[gnu::always_inline]] T& operator[](std::uint32_t index) { return Items()[index]; }
  [[gnu::always_inline]] const T& operator[](std::uint32_t index) const { return Items()[index]; }
  [[gnu::always_inline]] T& Last() { return Items()[m_iSize - 1]; }
  [[gnu::always_inline]] const T& Last() const { return Items()[m_iSize - 1]; }
  const T* begin() const { return Items(); }
  const T* end() const { return Items() + m_iSize; }
  T* begin() { return Items(); }
  T* end() { return Items() + m_iSize; }

  // False, and nothing added, without memory. The item must not lie in this array.
  [[gnu::always_inline]] bool Add(const T& item) {
    if (__builtin_expect(m_iSize == m_iRoom, 0) && !Grow()) return false;
    new (static_cast<void*>(Items() + m_iSize++)) T(item);
    return true;
  }
  // Likewise adds a T(), in its place; null without memory.
  T* AddNew() {
    if (__builtin_expect(m_iSize == m_iRoom, 0) && !Grow()) return nullptr;
    return new (static_cast<void*>(Items() + m_iSize++)) T();
  }
  // Likewise adds `count` items whose bytes are all 0; null without memory.
  T* AddZeros(std::uint32_t count) {
    while (m_iRoom - m_iSize < count) {
      if (!Grow()) return nullptr;
    }
    T* const first = Items() + m_iSize;
    std::memset(static_cast<void*>(first), 0, count * kSize);
    m_iSize += count;
    return first;
  }
  void Cut(std::uint32_t size) { m_iSize = size; }

 private:
  static constexpr std::size_t kSize =
      sizeof(T);  // NOLINT(bugprone-sizeof-expression): a pointer's
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

  T* Items() { return static_cast<T*>(m_pItems); }
  const T* Items() const { return static_cast<const T*>(m_pItems); }
  [[gnu::noinline]] bool Grow() { return ZtItems::Grow(m_Few, kSize); }

  alignas(T) unsigned char m_Few[kFew * kSize];
};

#endif  // ZTXML_SRC_BASE_ZTSMALLARRAY_H
