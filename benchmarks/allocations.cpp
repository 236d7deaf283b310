#include "allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t allocations = 0;

void* Count(void* memory) {
  ++allocations;
  return memory;
}

}  // namespace

std::size_t qxfmt::bench::Allocations() { return allocations; }

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Count(std::malloc(size));
}

void* operator new(std::size_t size) {
  void* const memory = Count(std::malloc(size));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto unit = static_cast<std::size_t>(alignment);
  void* const memory = Count(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  std::free(memory);
}
