#pragma once

// Hexadecimal digits, in both directions.

#include <array>
#include <bit>
#include <cstdint>

#include "text/lanes.h"

namespace qxfmt {

inline constexpr char16_t kHexDigitsLower[] = u"0123456789abcdef";
inline constexpr char16_t kHexDigitsUpper[] = u"0123456789ABCDEF";

namespace detail {

consteval std::array<std::uint8_t, 256> MakeHexDigitValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(0xFF);
  for (std::uint8_t i = 0; i < 16; ++i) {
    values[kHexDigitsLower[i]] = i;
    values[kHexDigitsUpper[i]] = i;
  }
  return values;
}

consteval std::array<std::uint32_t, 256> MakeHexPairs(const char16_t* digits) {
  std::array<std::uint32_t, 256> pairs{};
  for (unsigned i = 0; i < 256; ++i) {
    pairs[i] = static_cast<std::uint32_t>(MakeLanes(digits[i >> 4], digits[i & 0xF], 0, 0));
  }
  return pairs;
}

}  // namespace detail

inline constexpr std::array<std::uint8_t, 256> kHexDigitValues = detail::MakeHexDigitValues();

// "00" to "ff" and "00" to "FF", each as the first two lanes of a word.
inline constexpr std::array<std::uint32_t, 256> kHexPairsLower =
    detail::MakeHexPairs(kHexDigitsLower);
inline constexpr std::array<std::uint32_t, 256> kHexPairsUpper =
    detail::MakeHexPairs(kHexDigitsUpper);

// The value of a hexadecimal digit in either case; above 15 for a unit whose low byte is none. The
// high byte is not looked at.
inline std::uint32_t LowByteHexDigit(char16_t unit) { return kHexDigitValues[unit & 0xFF]; }

// The same for the whole unit: the high byte goes into the result, so that one comparison judges
// both.
inline std::uint32_t HexDigit(char16_t unit) { return LowByteHexDigit(unit) | (unit & 0xFF00U); }

// Hexadecimal digits of the value, 1 for 0.
inline std::int32_t CountHexDigits(std::uint64_t value) {
  return static_cast<std::int32_t>((std::bit_width(value | 1) + 3) / 4);
}

}  // namespace qxfmt
