#include "support/counted_heap.h"

#include <cstdlib>
#include <memory_resource>
#include <new>

using qxfmt::test::heap;

namespace {

class NamedHeap : public std::pmr::memory_resource {
  void* do_allocate(std::size_t size, std::size_t /*alignment*/) override {
    return ::operator new(size);
  }
  void do_deallocate(void* memory, std::size_t /*size*/, std::size_t /*alignment*/) override {
    ::operator delete(memory);
  }
  bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
};

}  // namespace

void qxfmt::test::UseHeapForShortTexts(bool use) {
  static NamedHeap named_heap;
  std::pmr::set_default_resource(use ? &named_heap : nullptr);
}

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
