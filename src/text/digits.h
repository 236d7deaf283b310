#pragma once

// Decimal digits of whole numbers, as 16-bit units.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "text/lanes.h"

namespace qxfmt {

// The values below 1000 in the two forms in which numbers need them: the one table for all decimal
// digits.
struct SmallNumbers {
  static constexpr std::uint32_t kCount = 1000;

  Lanes filled[kCount];  // a comma and three digits: ",007"
  Lanes digits[kCount];  // without leading zeros, then their count in the last lane
};

namespace detail {

constexpr SmallNumbers MakeSmallNumbers() {
  SmallNumbers numbers{};
  for (std::uint32_t value = 0; value < SmallNumbers::kCount; ++value) {
    const Lanes three = MakeLanes(u'0' + value / 100, u'0' + value / 10 % 10, u'0' + value % 10, 0);
    const int zeros = value < 10 ? 2 : value < 100 ? 1 : 0;
    numbers.filled[value] = three << 16 | u',';
    numbers.digits[value] = three >> (16 * zeros) | static_cast<Lanes>(3 - zeros) << 48;
  }
  return numbers;
}

}  // namespace detail

inline constexpr SmallNumbers kSmallNumbers = detail::MakeSmallNumbers();

// 10^0 to 10^19, all that fit 64 bits.
inline constexpr std::uint64_t kPowersOfTen[] = {
    1ULL,
    10ULL,
    100ULL,
    1'000ULL,
    10'000ULL,
    100'000ULL,
    1'000'000ULL,
    10'000'000ULL,
    100'000'000ULL,
    1'000'000'000ULL,
    10'000'000'000ULL,
    100'000'000'000ULL,
    1'000'000'000'000ULL,
    10'000'000'000'000ULL,
    100'000'000'000'000ULL,
    1'000'000'000'000'000ULL,
    10'000'000'000'000'000ULL,
    100'000'000'000'000'000ULL,
    1'000'000'000'000'000'000ULL,
    10'000'000'000'000'000'000ULL,
};

// Decimal digits of the value, 1 for 0. The bit width times log10(2) = 0.30103 (here 1233 / 4096)
// is the count or one less than it; one comparison decides.
inline std::int32_t CountDigits(std::uint64_t value) {
  const auto guess = static_cast<std::int32_t>((std::bit_width(value | 1) * 1233) >> 12);
  return guess + (static_cast<int>(value >= kPowersOfTen[guess]) | static_cast<int>(value == 0));
}

enum class Grouping : std::uint8_t { kNone, kCommas };

// The meaning of the interface's switches.
inline Grouping GroupingOf(std::int32_t grouped) {
  return grouped != 0 ? Grouping::kCommas : Grouping::kNone;
}

// Units of a number of that many digits, 1 or more.
template <Grouping kGrouping>
constexpr std::int32_t UnitsOfDigits(std::int32_t digits) {
  return kGrouping == Grouping::kCommas ? digits + (digits - 1) / 3 : digits;
}
inline std::int32_t UnitsOfDigits(std::int32_t digits, Grouping grouping) {
  return grouping == Grouping::kCommas ? UnitsOfDigits<Grouping::kCommas>(digits) : digits;
}

// Writes a value of at most that many digits, 1 or more, filled with zeros on the left. Returns the
// end. From the right, three digits a step: each store also puts a comma before its
// group, which without grouping the next store overwrites.
template <Grouping kGrouping = Grouping::kNone, typename Value>
inline char16_t* WriteDigits(char16_t* out, Value value, std::int32_t digits) {
  constexpr std::int32_t kStride = kGrouping == Grouping::kCommas ? 4 : 3;
  const std::int32_t units = UnitsOfDigits<kGrouping>(digits);
  std::int32_t end = units;
  while (end > 3) {
    const Value rest = value / 1000;
    StoreLanes(out + end - 4, kSmallNumbers.filled[static_cast<std::size_t>(value - rest * 1000)]);
    end -= kStride;
    value = rest;
  }
  // One to three digits are left. Without branches: a digit that they do not have is stored first
  // and overwritten by one that they have.
  const Lanes last = kSmallNumbers.filled[static_cast<std::size_t>(value)];
  out[std::max(end - 3, 0)] = LaneOf(last, 1);
  out[std::max(end - 2, 0)] = LaneOf(last, 2);
  out[end - 1] = LaneOf(last, 3);
  return out + units;
}

// Writes the two digits of a value below 100.
inline char16_t* WritePair(char16_t* out, std::uint32_t value) {
  StoreHalf(out, kSmallNumbers.filled[value] >> 32);
  return out + 2;
}

// Writes a separator and the two digits of a value below 100: "/07", ":59". Touches one unit more.
inline char16_t* WriteSeparatedPair(char16_t* out, char16_t separator, std::uint32_t value) {
  StoreLanes(out, (kSmallNumbers.filled[value] >> 16) ^ (separator ^ u'0'));
  return out + 3;
}

// Writes the digits of a value below 1000, without leading zeros. Touches four units.
inline char16_t* WriteSmall(char16_t* out, std::uint32_t value) {
  const Lanes digits = kSmallNumbers.digits[value];
  StoreLanes(out, digits);
  return out + (digits >> 48);
}

// Writes the digits of a value below 10000, without leading zeros. Touches four units. The leading
// zeros are shifted out of one word: no branch on the count of digits, which is as good as random.
inline char16_t* WriteUpToFour(char16_t* out, std::uint32_t value) {
  const std::uint32_t thousands = value / 1000;
  // The comma before the three digits becomes the fourth one.
  const Lanes four = kSmallNumbers.filled[value - thousands * 1000] + (u'0' - u',' + thousands);
  const int digits = 1 + (value > 9 ? 1 : 0) + (value > 99 ? 1 : 0) + (value > 999 ? 1 : 0);
  StoreLanes(out, four >> (16 * (4 - digits)));
  return out + digits;
}

// Writes the digits of a 16-bit value, without leading zeros. Touches five units.
inline char16_t* WriteUpToFive(char16_t* out, std::uint32_t value) {
  const std::uint32_t first = value / 10000;
  const std::uint32_t last_four = value - first * 10000;
  const std::uint32_t thousands = last_four / 1000;
  const Lanes four = kSmallNumbers.filled[last_four - thousands * 1000] + (u'0' - u',' + thousands);
  // All four digits show after a fifth one.
  const int digits = 1 + (value > 9 ? 1 : 0) + (value > 99 ? 1 : 0) + (value > 999 ? 1 : 0);
  *out = static_cast<char16_t>(u'0' + first);
  out += first != 0 ? 1 : 0;
  StoreLanes(out, four >> (16 * (4 - digits)));
  return out + digits;
}

// Writes a value in as many digits as it has. Touches at most three units more.
template <Grouping kGrouping, typename Value>
inline char16_t* WriteWhole(char16_t* out, Value value) {
  if (kGrouping == Grouping::kNone && value < 10000) {
    return WriteUpToFour(out, static_cast<std::uint32_t>(value));
  }
  if (kGrouping == Grouping::kCommas && value < 1000) {
    return WriteSmall(out, static_cast<std::uint32_t>(value));
  }
  return WriteDigits<kGrouping>(out, value, CountDigits(value));
}

}  // namespace qxfmt
