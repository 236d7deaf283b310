#pragma once

// The rates of the last minute as a row of small bars.

#include <cstddef>
#include <string>

#include "meter/rates.h"

namespace meter {

// At most `width` characters (1 or more), the latest rate at the right end, each bar as high as its
// rate is beside the highest one of the minute, which has so many readings. Without Unicode's
// blocks the bars are signs of ASCII.
std::string Bar(const Flow& flow, std::size_t readings, std::size_t width, bool is_unicode);

}  // namespace meter
