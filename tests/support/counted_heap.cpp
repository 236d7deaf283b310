#include "support/counted_heap.h"

#include <cstdlib>
#include <new>

using qxfmt::test::heap;

// Every form that the library and the standard containers use. Not inlined: g++ would take a free
// that it sees directly for one that does not match its new.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (heap.until_refusal >= 0 && heap.until_refusal-- == 0) return nullptr;
  heap.sizes[heap.allocations++ % 10] = size;
  ++heap.live;
  return std::malloc(size);
}

[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* const memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory != nullptr) --heap.live;
  std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}
