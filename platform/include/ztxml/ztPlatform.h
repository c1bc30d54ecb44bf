// The calls that ztxml makes into the device platform layer, and nothing else.
//
// A device links its own implementation of the declared functions; platform/host/ has one for
// Linux. Calls with a C name have C linkage. The wrappers with two leading underscores have C++
// linkage, because at least one C library exports a __strdup of its own; those that mean exactly
// the C library's function are inline, so a platform implements only what is declared here
// without a body.
#ifndef ZTXML_PLATFORM_INCLUDE_ZTPLATFORM_H
#define ZTXML_PLATFORM_INCLUDE_ZTPLATFORM_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#if defined(__GNUC__)
#define ZT_PLATFORM_API __attribute__((visibility("default")))
#define ZT_PLATFORM_OPTIONAL __attribute__((visibility("default"), weak))
#else
#define ZT_PLATFORM_API
#define ZT_PLATFORM_OPTIONAL
#endif

extern "C" {

// ---- Module log ---------------------------------------------------------------------------

/// One log argument: a number, or the address of a NUL-terminated text for %s.
typedef std::uintptr_t ztLogArgument;

/// Writes one line to the module log. `level` is 1 (optional items), 2 (trace and most failures),
/// 3 (state changes, minor faults) or 4 (errors). `format` is printf-style with at most three
/// conversions; absent arguments are passed as 0. All texts are borrowed for the call.
ZT_PLATFORM_API void ztLogModuleEventSimple(int level, int moduleId, const char* sourceFile,
                                            int line, const char* format, ztLogArgument a,
                                            ztLogArgument b, ztLogArgument c);

/// Optional: the platform discards lines of this level and below. Where it defines the variable,
/// the library does not call it for these lines.
ZT_PLATFORM_OPTIONAL extern int ztLogDiscardedUpTo;

// ---- Memory log ---------------------------------------------------------------------------

/// Records an allocation of `size` bytes at `pointer`, made at `sourceFile`:`line`.
ZT_PLATFORM_API void wdmemlog_add(int tag, const char* sourceFile, int line, const void* pointer,
                                  std::size_t size);

/// Records that `pointer`, recorded under `tag`, is about to be released.
ZT_PLATFORM_API void wdmemlog_remove(int tag, const void* pointer);

/// Optional: not 0 while the memory log is off. Where the platform defines the variable, the
/// library does not call the memory log then.
ZT_PLATFORM_OPTIONAL extern int ztMemoryLogOff;

// ---- Files --------------------------------------------------------------------------------

/// What an open device tells about its file.
struct ztDplIODeviceSpecificInfo {
  std::intptr_t attributes;  ///< platform-defined
  std::int64_t size;         ///< size of the file in bytes when it was opened
};

/// A device descriptor. Callers zero it and set `type` before the first open; the rest belongs to
/// the platform. A zeroed descriptor means "never opened".
struct ztDplIODevice {
  std::intptr_t handle;                      ///< platform-defined, 0 when not open
  std::intptr_t type;                        ///< 2 for files
  ztDplIODeviceSpecificInfo* pSpecificInfo;  ///< filled by a successful open, else null
  ztDplIODeviceSpecificInfo info;            ///< room that `pSpecificInfo` may point to
};

/// Opens `path`. `flags`: 3 read, 4 write (create, truncate), 5 read and write (create, keep).
/// Opening a descriptor that is open closes the old handle first. Returns 0, else an error code.
ZT_PLATFORM_API int ztDplIODeviceOpen(ztDplIODevice* device, const char* path, int flags,
                                      int reserved);

/// Reads up to `size` bytes into `buffer`; `*count` returns how many, 0 at the end of the file.
/// Returns 0, else an error code.
ZT_PLATFORM_API int ztDplIODeviceRead(ztDplIODevice* device, char* buffer, unsigned size,
                                      int* count);

/// Writes `size` bytes of `data`; `*written` returns how many. Returns 0, else an error code.
ZT_PLATFORM_API int ztDplIODeviceWrite(ztDplIODevice* device, const char* data, unsigned size,
                                       int* written, int reserved);

/// Closes the device; one that is not open closes nothing. Returns 0, else an error code.
ZT_PLATFORM_API int ztDplIODeviceClose(ztDplIODevice* device);

}  // extern "C"

// ---- Allocation ---------------------------------------------------------------------------

/// As malloc: null when there is no memory. Released with __free.
ZT_PLATFORM_API void* __malloc(std::size_t size);
/// As calloc: zero-filled, null when there is no memory. Released with __free.
ZT_PLATFORM_API void* __calloc(std::size_t count, std::size_t size);
/// As free: null is ignored.
ZT_PLATFORM_API void __free(void* pointer);
/// As strdup, on top of __malloc: null when there is no memory. Released with __free.
ZT_PLATFORM_API char* __strdup(const char* text);

// ---- Memory and numbers -------------------------------------------------------------------

/// Guarded memmove of `size` bytes into a buffer of `capacity` bytes. When they do not fit, logs
/// "ztDplMemsmove - src1_size buffer size less than src2_size size" and ends the process.
ZT_PLATFORM_API void* __memmove(void* to, std::size_t capacity, const void* from, std::size_t size);
/// Writes `value` in the given radix (2 to 36) into `buffer`, which holds at least 66 bytes, and
/// returns `buffer`.
ZT_PLATFORM_API char* __itoaL(long value, char* buffer, int radix);
/// Copies at most `count` bytes of `from`, stopping at its NUL, into the `capacity` bytes at `to`
/// and terminates (unless `capacity` is 0). Returns `to`.
ZT_PLATFORM_API char* __strlncpy(char* to, std::size_t capacity, const char* from,
                                 std::size_t count);
/// BSD strlcpy: returns the length of `from`; the copy is cut to fit and terminated.
ZT_PLATFORM_API std::size_t __strlcpy(char* to, const char* from, std::size_t capacity);
/// BSD strlcat: returns the length that the whole result would have had.
ZT_PLATFORM_API std::size_t __strlcat(char* to, const char* from, std::size_t capacity);

/// As the C library's memset.
inline void* __memset(void* to, int byte, std::size_t size) { return std::memset(to, byte, size); }
/// As the C library's atoi.
// NOLINTNEXTLINE(cert-err34-c): the C library call is what is meant
inline int __atoi(const char* text) { return std::atoi(text); }
/// As the C library's atoll.
// NOLINTNEXTLINE(cert-err34-c): the C library call is what is meant
inline std::int64_t __atoi64(const char* text) { return std::atoll(text); }

// ---- Texts --------------------------------------------------------------------------------

/// As the C library's functions without the two underscores.
inline std::size_t __strlen(const char* text) { return std::strlen(text); }
inline int __strcmp(const char* a, const char* b) { return std::strcmp(a, b); }
inline int __strncmp(const char* a, const char* b, std::size_t n) { return std::strncmp(a, b, n); }
inline char* __strchr(char* text, int c) { return std::strchr(text, c); }
inline const char* __strchr(const char* text, int c) { return std::strchr(text, c); }
inline char* __strstr(char* text, const char* part) { return std::strstr(text, part); }
inline const char* __strstr(const char* text, const char* part) { return std::strstr(text, part); }
inline std::size_t __strcspn(const char* text, const char* set) { return std::strcspn(text, set); }

#endif  // ZTXML_PLATFORM_INCLUDE_ZTPLATFORM_H
