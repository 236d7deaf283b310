#pragma once

// Judging the units of an address.

#include <cstdint>

#include "text/lanes.h"

namespace qxfmt {

// Above 9 for a unit that is no digit.
inline std::uint32_t DecimalDigit(char16_t unit) { return std::uint32_t{unit} - u'0'; }

// The high bytes of four units. No unit of an address has one.
inline constexpr Lanes kHighBytes = 0xFF00'FF00'FF00'FF00;

}  // namespace qxfmt
