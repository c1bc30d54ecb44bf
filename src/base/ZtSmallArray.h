// Arrays that need no heap while they are small.
#ifndef ZTXML_SRC_BASE_ZTSMALLARRAY_H
#define ZTXML_SRC_BASE_ZTSMALLARRAY_H

#include <cstdint>
#include <cstring>
#include <new>
#include <type_traits>

#include "ztxml/ztPlatform.h"

// Items of a plain type, `kFew` of them in the array itself, more on the heap, whose room doubles.
template <class T, std::uint32_t kFew>
class ZtSmallArray {
 public:
  ZtSmallArray() = default;
  ~ZtSmallArray() { Drop(); }
  ZtSmallArray(const ZtSmallArray&) = delete;
  ZtSmallArray& operator=(const ZtSmallArray&) = delete;

  [[gnu::always_inline]] std::uint32_t Size() const { return m_iSize; }
  [[gnu::always_inline]] T& operator[](std::uint32_t index) { return m_pItems[index]; }
  [[gnu::always_inline]] const T& operator[](std::uint32_t index) const { return m_pItems[index]; }
  [[gnu::always_inline]] T& Last() { return m_pItems[m_iSize - 1]; }
  [[gnu::always_inline]] const T& Last() const { return m_pItems[m_iSize - 1]; }
  const T* begin() const { return m_pItems; }
  const T* end() const { return m_pItems + m_iSize; }
  T* begin() { return m_pItems; }
  T* end() { return m_pItems + m_iSize; }

  // False, and nothing added, without memory. The item must not lie in this array.
  [[gnu::always_inline]] bool Add(const T& item) {
    if (__builtin_expect(m_iSize == m_iRoom, 0) && !Grow()) return false;
    new (static_cast<void*>(m_pItems + m_iSize++)) T(item);
    return true;
  }
  // Likewise adds a T(), in its place; null without memory.
  T* AddNew() {
    if (__builtin_expect(m_iSize == m_iRoom, 0) && !Grow()) return nullptr;
    return new (static_cast<void*>(m_pItems + m_iSize++)) T();
  }
  // Likewise adds `count` items whose bytes are all 0; null without memory.
  T* AddZeros(std::uint32_t count) {
    while (m_iRoom - m_iSize < count) {
      if (!Grow()) return nullptr;
    }
    T* const first = m_pItems + m_iSize;
    std::memset(static_cast<void*>(first), 0, count * kSize);
    m_iSize += count;
    return first;
  }
  void Cut(std::uint32_t size) { m_iSize = size; }

 private:
  static constexpr std::size_t kSize =
      sizeof(T);  // NOLINT(bugprone-sizeof-expression): a pointer's
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

  T* Few() { return reinterpret_cast<T*>(m_Few); }
  void Drop() {
    if (m_pItems != Few()) __free(m_pItems);
  }
  [[gnu::noinline]] bool Grow() {
    constexpr std::uint32_t kMost = UINT32_MAX / 2;
    if (m_iRoom > kMost || m_iRoom > SIZE_MAX / 2 / kSize) return false;
    void* memory = __malloc(std::size_t{2} * m_iRoom * kSize);
    if (!memory) return false;
    std::memcpy(memory, static_cast<const void*>(m_pItems), m_iSize * kSize);
    Drop();
    m_pItems = static_cast<T*>(memory);
    m_iRoom *= 2;
    return true;
  }

  alignas(T) unsigned char m_Few[kFew * kSize];
  T* m_pItems = Few();
  std::uint32_t m_iSize = 0;
  std::uint32_t m_iRoom = kFew;
};

#endif  // ZTXML_SRC_BASE_ZTSMALLARRAY_H
