#pragma once

// operator new and operator delete of this program, as the calling thread uses them: counted, and
// refused where a test asks for it.

namespace qxfmt::test {

struct CountedHeap {
  int allocations = 0;     // granted since the thread began
  int live = 0;            // of these, not given back
  int until_refusal = -1;  // granted before one is refused, and then all again; below 0: none is
};

inline thread_local constinit CountedHeap heap;

}  // namespace qxfmt::test
