#include "ZtExport.h"
#include "ztPlatform.h"

void* ZtHeapObject::operator new(std::size_t size) noexcept { return __malloc(size); }

void* ZtHeapObject::operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return __malloc(size);
}

void ZtHeapObject::operator delete(void* pointer) noexcept { __free(pointer); }

void ZtHeapObject::operator delete(void* pointer, const std::nothrow_t&) noexcept {
  __free(pointer);
}
