#pragma once

#include <cstddef>

// operator new and operator delete of this program: counted, and refused where a test asks for it.

namespace qxfmt::test {

// As the calling thread uses them.
struct CountedHeap {
  int allocations = 0;      // granted so far
  std::size_t sizes[10]{};  // of the last ones, each at its number modulo 10
  int live = 0;             // of these, not given back
  int until_refusal = -1;   // granted before one is refused, and then all again; below 0: none is
};

inline thread_local constinit CountedHeap heap;

}  // namespace qxfmt::test
