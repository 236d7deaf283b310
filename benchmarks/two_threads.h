#pragma once

#include "comparison.h"

namespace qxfmt::bench {

// Results a second of two threads with a formatter each, divided by those of one thread.
double TwoThreadRatio(const Row& row);

}  // namespace qxfmt::bench
