#pragma once

#include <cstdint>
#include <string_view>

#include "frame/bounded_print.h"
#include "frame/result_block.h"
#include "numbers/grouping.h"

namespace qxfmt {

// A whole number printed into a block, grouped or not. Returns the count of units.
template <Pattern kPattern, std::uint32_t kBytes, typename Value>
std::int32_t PrintInteger(const ResultBlock<kBytes>& block, Value value, std::int32_t grouped) {
  constexpr std::int32_t kLimit = ResultBlock<kBytes>::kPrintLimit;
  if (grouped == 0) return BoundedPrint<kPattern>(block.units(), kLimit, value);
  char16_t scratch[32];  // the longest number has 20 units
  const std::int32_t size = BoundedPrint<kPattern>(scratch, 32, value);
  return CopyGrouped(block.units(), kLimit, {scratch, static_cast<std::size_t>(size)});
}

}  // namespace qxfmt
