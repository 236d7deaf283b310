#pragma once

#include <cstddef>

namespace qxfmt::bench {

// How often this thread has called `operator new`, from the library as well.
std::size_t Allocations();

}  // namespace qxfmt::bench
