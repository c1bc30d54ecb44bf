// What the public classes of the library carry: symbol visibility and where they are allocated.
#ifndef ZTXML_INCLUDE_ZTEXPORT_H
#define ZTXML_INCLUDE_ZTEXPORT_H

#include <cstddef>
#include <new>

// Marks what the shared library exports. A class with inline functions only marks just its table.
// ZT_LOCAL marks what of an exported class nothing but the library itself calls, ZT_COLD what of
// this runs seldom: it is small rather than fast.
#if defined(__GNUC__)
#define ZT_API __attribute__((visibility("default")))
#define ZT_LOCAL __attribute__((visibility("hidden")))
#define ZT_COLD __attribute__((visibility("hidden"), cold))
#else
#define ZT_API
#define ZT_LOCAL
#define ZT_COLD
#endif

// Marks the destructors of what stands between a schema type or a worker and the first of its
// bases: as parts of the destructor of that class they need no table and no functions of their own.
#if defined(__GNUC__)
#define ZT_INLINE __attribute__((always_inline))
#else
#define ZT_INLINE
#endif

class ZtArena;

/// Base of the classes that live on the heap: `new` takes memory from the device platform layer
/// and yields null when there is none (it never throws or aborts). The memory is aligned for
/// members of up to 8 bytes.
class ZT_API ZtHeapObject {
 public:
  /// Memory of the platform layer, or of an arena; null when there is none.
  static void* operator new(std::size_t size) noexcept;
  static void* operator new(std::size_t size, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t size, ZtArena* arena) noexcept;
  /// Gives the memory back.
  static void operator delete(void* pointer) noexcept;
  static void operator delete(void* pointer, const std::nothrow_t&) noexcept;
  static void operator delete(void* pointer, ZtArena*) noexcept;
};

/// Base of the classes that own something and therefore must not be copied.
class ZT_API ZtNonCopyable : public ZtHeapObject {
 public:
  ZtNonCopyable(const ZtNonCopyable&) = delete;
  ZtNonCopyable& operator=(const ZtNonCopyable&) = delete;

 protected:
  ZtNonCopyable() = default;
  ~ZtNonCopyable() = default;
};

#endif  // ZTXML_INCLUDE_ZTEXPORT_H
