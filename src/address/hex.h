#pragma once

// Hexadecimal digits by table, in both directions.

#include <array>
#include <cstdint>

#include "frame/digits.h"

namespace qxfmt {

namespace detail {

constexpr std::array<std::uint8_t, 256> MakeHexDigitValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(0xFF);
  for (std::uint8_t i = 0; i < 16; ++i) {
    values[kHexDigitsLower[i]] = i;
    values[kHexDigitsUpper[i]] = i;
  }
  return values;
}

constexpr std::array<std::uint32_t, 256> MakeHexPairs(const char16_t* digits) {
  std::array<std::uint32_t, 256> pairs{};
  for (unsigned i = 0; i < 256; ++i) {
    pairs[i] = digits[i >> 4] | static_cast<std::uint32_t>(digits[i & 0xF]) << 16;
  }
  return pairs;
}

}  // namespace detail

inline constexpr std::array<std::uint8_t, 256> kHexDigitValues = detail::MakeHexDigitValues();

// "00" to "ff" and "00" to "FF", each as a number with the first digit in its low half.
inline constexpr std::array<std::uint32_t, 256> kHexPairsLower =
    detail::MakeHexPairs(kHexDigitsLower);
inline constexpr std::array<std::uint32_t, 256> kHexPairsUpper =
    detail::MakeHexPairs(kHexDigitsUpper);

// The value of a hexadecimal digit in either case; above 15 for a unit that is none. The high byte
// of the unit goes into the result, so that one comparison judges the whole unit.
inline std::uint32_t HexDigit(char16_t unit) {
  return kHexDigitValues[unit & 0xFF] | (unit & 0xFF00U);
}

// Writes an entry of one of the tables of pairs.
inline void WriteHexPair(char16_t* out, std::uint32_t pair) {
  out[0] = static_cast<char16_t>(pair);
  out[1] = static_cast<char16_t>(pair >> 16);
}

}  // namespace qxfmt
