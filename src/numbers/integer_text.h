#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/bounded_print.h"
#include "frame/digits.h"
#include "frame/result_block.h"

namespace qxfmt {

// A whole number with commas and a terminator; the sign stands directly before the first digit.
// Returns the count of units, at most 26.
template <typename Value>
std::int32_t PrintGrouped(char16_t* target, Value value) {
  using Magnitude = std::conditional_t<sizeof(Value) == 8, std::uint64_t, std::uint32_t>;
  const auto bits = static_cast<Magnitude>(value);
  const Magnitude magnitude = value < 0 ? Magnitude{0} - bits : bits;
  char16_t* out = target;
  *out = u'-';
  out += value < 0 ? 1 : 0;
  const std::int32_t units = UnitsOfDigits<Grouping::kCommas>(CountDigits(magnitude));
  WriteNumber<Grouping::kCommas>(out, magnitude, units);
  out += units;
  *out = u'\0';
  return static_cast<std::int32_t>(out - target);
}

// A whole number printed into a block, grouped or not. Returns the count of units.
template <Pattern kPattern, std::uint32_t kBytes, typename Value>
std::int32_t PrintInteger(const ResultBlock<kBytes>& block, Value value, std::int32_t grouped) {
  if (grouped != 0) return PrintGrouped(block.units(), value);
  return BoundedPrint<kPattern>(block.units(), block.kPrintLimit, value);
}

}  // namespace qxfmt
