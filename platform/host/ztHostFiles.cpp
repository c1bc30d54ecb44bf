// Files of the Linux host platform, on POSIX file descriptors.
#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ztxml/ztHostPlatform.h"

namespace {

constexpr int kFlagRead = 3;
constexpr int kFlagWrite = 4;
constexpr int kFlagReadWrite = 5;

// `handle` is the file descriptor plus one, so that a zeroed device is not standard input but one
// that was never opened.
int DescriptorOf(const ztDplIODevice* device) { return static_cast<int>(device->handle) - 1; }
bool IsOpen(const ztDplIODevice* device) { return device->handle > 0; }

int CloseDescriptor(int descriptor) {
  // Linux releases the descriptor even when close is interrupted: a retry could close another file.
  return close(descriptor) == 0 || errno == EINTR ? 0 : errno;
}

// Returns a descriptor, or the negated error code.
int OpenDescriptor(const char* path, int access) {
  for (;;) {
    // O_NONBLOCK: opening a FIFO must fail, not wait for its other end.
    const int descriptor = open(path, access | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
    if (descriptor >= 0) return descriptor;
    if (errno != EINTR) return -errno;
  }
}

// Accepts regular files only and then empties the file if asked to: O_TRUNC would empty it before
// it is known to be regular.
int CheckRegular(int descriptor, bool truncate, struct stat* status) {
  if (fstat(descriptor, status) != 0) return errno;
  if (S_ISDIR(status->st_mode)) return EISDIR;
  if (!S_ISREG(status->st_mode)) return ENOTSUP;
  while (truncate && ftruncate(descriptor, 0) != 0) {
    if (errno != EINTR) return errno;
  }
  if (truncate) status->st_size = 0;
  return 0;
}

}  // namespace

int ztDplIODeviceOpen(ztDplIODevice* device, const char* path, int flags, int /*reserved*/) {
  if (device == nullptr) return EINVAL;
  ztDplIODeviceClose(device);
  if (path == nullptr) return EINVAL;

  int access = 0;
  switch (flags) {
    case kFlagRead:
      access = O_RDONLY;
      break;
    case kFlagWrite:
      access = O_WRONLY | O_CREAT;
      break;
    case kFlagReadWrite:
      access = O_RDWR | O_CREAT;
      break;
    default:
      return EINVAL;
  }

  const int descriptor = OpenDescriptor(path, access);
  if (descriptor < 0) return -descriptor;
  struct stat status = {};
  const int error = CheckRegular(descriptor, flags == kFlagWrite, &status);
  if (error != 0) {
    CloseDescriptor(descriptor);
    return error;
  }
  device->handle = static_cast<std::intptr_t>(descriptor) + 1;
  device->info.attributes = static_cast<std::intptr_t>(status.st_mode);
  device->info.size = status.st_size;
  device->pSpecificInfo = &device->info;
  return 0;
}

int ztDplIODeviceRead(ztDplIODevice* device, char* buffer, unsigned size, int* count) {
  if (count != nullptr) *count = 0;
  if (device == nullptr || buffer == nullptr || count == nullptr) return EINVAL;
  if (!IsOpen(device)) return EBADF;
  const unsigned limit = std::min(size, static_cast<unsigned>(INT_MAX));
  for (;;) {
    const ssize_t got = read(DescriptorOf(device), buffer, limit);
    if (got >= 0) {
      *count = static_cast<int>(got);
      return 0;
    }
    if (errno != EINTR) return errno;
  }
}

int ztDplIODeviceWrite(ztDplIODevice* device, const char* data, unsigned size, int* written,
                       int /*reserved*/) {
  if (written != nullptr) *written = 0;
  if (device == nullptr || data == nullptr || written == nullptr) return EINVAL;
  if (size > static_cast<unsigned>(INT_MAX)) return EINVAL;  // more than *written can hold
  if (!IsOpen(device)) return EBADF;
  unsigned done = 0;
  while (done < size) {
    const ssize_t put = write(DescriptorOf(device), data + done, size - done);
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) return errno;
    if (put == 0) return EIO;
    done += static_cast<unsigned>(put);
    *written = static_cast<int>(done);
  }
  return 0;
}

int ztDplIODeviceClose(ztDplIODevice* device) {
  if (device == nullptr) return EINVAL;
  const int descriptor = DescriptorOf(device);
  const bool open = IsOpen(device);
  device->handle = 0;
  device->pSpecificInfo = nullptr;
  return open ? CloseDescriptor(descriptor) : 0;
}
