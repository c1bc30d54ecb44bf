#include "ZtArena.h"
#include "ZtExport.h"

void* ZtHeapObject::operator new(std::size_t size) noexcept { return ZtAllocate(size); }

void* ZtHeapObject::operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return ZtAllocate(size);
}

void* ZtHeapObject::operator new(std::size_t size, ZtArena* arena) noexcept {
  return ZtAllocate(size, arena);
}

void ZtHeapObject::operator delete(void* pointer) noexcept { ZtFree(pointer); }

void ZtHeapObject::operator delete(void* pointer, const std::nothrow_t&) noexcept {
  ZtFree(pointer);
}

void ZtHeapObject::operator delete(void* pointer, ZtArena*) noexcept { ZtFree(pointer); }
