#pragma once

#include <cstdint>

#include "text/digits.h"

namespace qxfmt {

// The block of a decimal, by itself or inside of a size or a rate.
inline constexpr std::uint32_t kDecimalBlock = 256;

// Room for a decimal and its terminator. Without commas it stops short of the block; with them it
// fills the block.
constexpr std::int32_t DecimalLimit(Grouping grouping) {
  return grouping == Grouping::kCommas ? 128 : 120;
}

}  // namespace qxfmt
