#pragma once

#include <cstddef>

// operator new and operator delete of this program, as the calling thread uses them: counted, and
// refused where a test asks for it.

namespace qxfmt::test {

// Of the calling thread.
struct CountedHeap {
  int allocations = 0;      // granted so far
  std::size_t sizes[10]{};  // of the last ones, each at its number modulo 10
  int live = 0;             // of these, not given back
  int until_refusal = -1;   // granted before one is refused, and then all again; below 0: none is
};

inline thread_local constinit CountedHeap heap;

// Refuses the allocation of this number while it lives, counted from 0; none if it is below.
class Refusal {
 public:
  explicit Refusal(int number) : number_(number) { heap.until_refusal = number; }
  ~Refusal() { heap.until_refusal = -1; }
  bool has_happened() const { return number_ >= 0 && heap.until_refusal < 0; }

 private:
  int number_;
};

// Whether short texts ask for memory as well, since their resource has another name than the heap.
void UseHeapForShortTexts(bool use);

}  // namespace qxfmt::test
