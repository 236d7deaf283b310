#pragma once

// Decimal digits of whole numbers, as 16-bit units.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

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

consteval SmallNumbers MakeSmallNumbers() {
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

namespace detail {

template <std::uint64_t kBase, std::size_t kCount>
consteval std::array<std::uint64_t, kCount> MakePowers() {
  std::array<std::uint64_t, kCount> powers{};
  std::uint64_t power = 1;
  for (std::uint64_t& entry : powers) {
    entry = power;
    power *= kBase;  // once too often, which is unsigned and harmless
  }
  return powers;
}

}  // namespace detail

// All that fit 64 bits: 10^0 to 10^19, 1000^0 to 1000^6.
inline constexpr auto kPowersOfTen = detail::MakePowers<10, 20>();
inline constexpr auto kPowersOfThousand = detail::MakePowers<1000, 7>();

// Decimal digits of the value, 1 for 0. The bit width times log10(2) = 0.30103 (here 1233 / 4096)
// is the count or one less than it; one comparison decides.
inline std::int32_t CountDigits(std::uint64_t value) {
  const auto guess = static_cast<std::int32_t>((std::bit_width(value | 1) * 1233) >> 12);
  return guess + (static_cast<int>(value >= kPowersOfTen[static_cast<std::size_t>(guess)]) |
                  static_cast<int>(value == 0));
}

// Groups of three digits that follow the first group of a value below 10^18. Likewise: between two
// powers of 2 lies at most one of 1000, and log1000(2) = 0.10034 (here 411 / 4096).
inline std::int32_t CountLaterGroups(std::uint64_t value) {
  const auto guess = static_cast<std::int32_t>(((std::bit_width(value | 1) - 1) * 411) >> 12);
  return guess + static_cast<int>(value >= kPowersOfThousand[static_cast<std::size_t>(guess) + 1]);
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

namespace detail {

// Writes the last three digits of a value and the comma before them; without grouping, the three
// digits that follow to the left overwrite the comma. Returns what is left of the value.
template <typename Value>
inline Value WriteGroup(char16_t* end, Value value) {
  const Value rest = value / 1000;
  const auto three = static_cast<std::uint32_t>(value) - static_cast<std::uint32_t>(rest) * 1000;
  StoreLanes(end - 4, kSmallNumbers.filled[three]);
  return rest;
}

// Writes the first `count` digits of a number, 1 to 3, zero-filled. Three stores without branches:
// where there are fewer digits, two of them write the same one.
inline void WriteFirstGroup(char16_t* out, std::uint32_t value, std::int32_t count) {
  const Lanes digits = kSmallNumbers.filled[value] >> (16 * (4 - count));
  const std::int32_t middle = count / 2;
  out[0] = LaneOf(digits, 0);
  out[middle] = LaneOf(digits, middle);
  out[count - 1] = LaneOf(digits, count - 1);
}

}  // namespace detail

// Writes a value of at most that many digits, 1 or more, filled with zeros on the left. Returns the
// end. From the right, three digits a step.
template <Grouping kGrouping = Grouping::kNone, typename Value>
inline char16_t* WriteFilled(char16_t* out, Value value, std::int32_t digits) {
  constexpr std::int32_t kStride = kGrouping == Grouping::kCommas ? 4 : 3;
  const std::int32_t units = UnitsOfDigits<kGrouping>(digits);
  std::int32_t end = units;
  for (; end > 3; end -= kStride) value = detail::WriteGroup(out + end, value);
  detail::WriteFirstGroup(out, static_cast<std::uint32_t>(value), end);
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

namespace detail {

// Writes a value below 10000. Touches four units. The digits show from the first that is not 0 or
// whose lane has a bit in `shown`, and what is before is shifted out of one word: no branch on the
// count of digits, which is as good as random.
inline char16_t* WriteFour(char16_t* out, std::uint32_t value, Lanes shown) {
  constexpr Lanes kZeros = MakeLanes(u'0', u'0', u'0', u'0');
  const std::uint32_t thousands = value / 1000;
  // The comma before the three digits becomes the fourth one.
  const Lanes four = kSmallNumbers.filled[value - thousands * 1000] + (u'0' - u',' + thousands);
  const int zeros = std::countr_zero((four ^ kZeros) | shown) / 16;
  StoreLanes(out, four >> (16 * zeros));
  return out + (4 - zeros);
}

}  // namespace detail

// Writes the digits of a value below 10000, `kLeast` of them or more. Touches four units.
template <int kLeast = 1>
inline char16_t* WriteUpToFour(char16_t* out, std::uint32_t value) {
  return detail::WriteFour(out, value, Lanes{1} << (16 * (4 - kLeast)));
}

// Writes the digits of a 16-bit value, without leading zeros. Touches five units.
inline char16_t* WriteUpToFive(char16_t* out, std::uint32_t value) {
  const std::uint32_t fifth = value / 10000;
  *out = static_cast<char16_t>(u'0' + fifth);
  out += fifth != 0 ? 1 : 0;
  // After a fifth digit all four show.
  return detail::WriteFour(out, value - fifth * 10000, Lanes{1} << 48 | fifth);
}

namespace detail {

// Writes groups of three digits of a value below 1000^kGroups, each with a comma before it or
// without, and returns their end. Touches one unit more without commas.
template <Grouping kGrouping, int kGroups, typename Value>
inline char16_t* WriteGroups(char16_t* out, Value value) {
  if constexpr (kGroups == 1) {
    const Lanes filled = kSmallNumbers.filled[value];
    StoreLanes(out, kGrouping == Grouping::kCommas ? filled : filled >> 16);
    return out + (kGrouping == Grouping::kCommas ? 4 : 3);
  } else {
    constexpr int kLow = kGroups / 2;
    constexpr auto kScale = static_cast<Value>(kPowersOfThousand[kLow]);
    const Value high = value / kScale;
    const Value low = value - high * kScale;
    using Narrow = std::conditional_t<kGroups <= 6, std::uint32_t, Value>;  // at most 10^9
    out = WriteGroups<kGrouping, kGroups - kLow>(out, static_cast<Narrow>(high));
    return WriteGroups<kGrouping, kLow>(out, static_cast<Narrow>(low));
  }
}

// Enough groups for all values of a type, except those from 10^18 on.
template <typename Value>
inline constexpr int kGroupsOf = sizeof(Value) == 8   ? 6
                                 : sizeof(Value) == 4 ? 4
                                                      : 2;

}  // namespace detail

// Writes a value below 1000^kGroups in groups of three digits, zero-filled and without commas.
// Touches one unit more.
template <int kGroups>
inline char16_t* WriteThousands(char16_t* out, std::uint32_t value) {
  if constexpr (kGroups == 0)
    return out;
  else
    return detail::WriteGroups<Grouping::kNone, kGroups>(out, value);
}

// Units that WriteWhole may touch.
template <typename Value>
inline constexpr std::int32_t kWholeRoom = sizeof(Value) == 8 ? 27 : 4 * detail::kGroupsOf<Value>;

// Writes a value in as many digits as it has.
//
// A longer value is multiplied by the power of 1000 that gives it as many groups as its type can
// have. So the first group is always the first of these; all are written, and where the text ends
// is a matter of arithmetic: no branch on the length, which is as good as random.
template <Grouping kGrouping = Grouping::kNone, typename Value>
inline char16_t* WriteWhole(char16_t* out, Value value) {
  constexpr int kLater = detail::kGroupsOf<Value> - 1;
  constexpr std::int32_t kStride = kGrouping == Grouping::kCommas ? 4 : 3;
  constexpr std::uint64_t kFirstScale = kPowersOfThousand[kLater];
  if (kGrouping == Grouping::kNone && value < 10000) {
    return WriteUpToFour(out, static_cast<std::uint32_t>(value));
  }
  if (kGrouping == Grouping::kCommas && value < 1000) {
    return WriteSmall(out, static_cast<std::uint32_t>(value));
  }
  if (sizeof(Value) == 8 && value >= kPowersOfThousand[6]) [[unlikely]] {
    const std::uint64_t first = value / kPowersOfThousand[6];
    out = WriteSmall(out, static_cast<std::uint32_t>(first));
    return detail::WriteGroups<kGrouping, 6>(out, value - first * kPowersOfThousand[6]);
  }
  const std::int32_t later = CountLaterGroups(value);
  const std::uint64_t all =
      std::uint64_t{value} * kPowersOfThousand[static_cast<std::size_t>(kLater - later)];
  const std::uint64_t first = all / kFirstScale;
  char16_t* const first_end = WriteSmall(out, static_cast<std::uint32_t>(first));
  detail::WriteGroups<kGrouping, kLater>(first_end, all - first * kFirstScale);
  return first_end + std::ptrdiff_t{kStride} * later;
}

}  // namespace qxfmt
