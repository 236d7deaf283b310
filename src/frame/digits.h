#pragma once

// Digits of whole numbers, as 16-bit units.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qxfmt {

namespace detail {

struct TwoDigits {
  char16_t units[2];
};

constexpr std::array<TwoDigits, 100> MakeDecimalPairs() {
  std::array<TwoDigits, 100> pairs{};
  for (unsigned i = 0; i < 100; ++i) {
    pairs[i] = {{static_cast<char16_t>(u'0' + i / 10), static_cast<char16_t>(u'0' + i % 10)}};
  }
  return pairs;
}

struct CommaAndThreeDigits {
  char16_t units[4];
};

constexpr std::array<CommaAndThreeDigits, 1000> MakeDecimalTriples() {
  std::array<CommaAndThreeDigits, 1000> triples{};
  for (unsigned i = 0; i < 1000; ++i) {
    triples[i] = {{u',', static_cast<char16_t>(u'0' + i / 100),
                   static_cast<char16_t>(u'0' + i / 10 % 10),
                   static_cast<char16_t>(u'0' + i % 10)}};
  }
  return triples;
}

}  // namespace detail

// "00" to "99".
inline constexpr std::array<detail::TwoDigits, 100> kDecimalPairs = detail::MakeDecimalPairs();

// ",000" to ",999": a group with the comma before it is one 8-byte store.
inline constexpr std::array<detail::CommaAndThreeDigits, 1000> kDecimalTriples =
    detail::MakeDecimalTriples();

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

// Writes the two digits of a value below 100.
inline void WriteDigitPair(char16_t* out, std::uint32_t value) {
  std::memcpy(out, &kDecimalPairs[value], sizeof(detail::TwoDigits));
}

// Writes the last `count` decimal digits of the value to out[0] .. out[count - 1], filled with
// zeros on the left. Four digits a step: one long division, the rest in 32 bits.
template <typename Value>
inline void WriteDigits(char16_t* out, Value value, std::int32_t count) {
  char16_t* end = out + count;
  while (end - out >= 4) {
    const Value rest = value / 10000;
    const auto four = static_cast<std::uint32_t>(value - rest * 10000);
    const std::uint32_t high = four / 100;
    WriteDigitPair(end - 4, high);
    WriteDigitPair(end - 2, four - high * 100);
    end -= 4;
    value = rest;
  }
  auto last = static_cast<std::uint32_t>(value);
  if (end - out >= 2) {
    WriteDigitPair(end - 2, last % 100);
    end -= 2;
    last /= 100;
  }
  if (end > out) *out = static_cast<char16_t>(u'0' + last % 10);
}

enum class Grouping : std::uint8_t { kNone, kCommas };

// Units of a number of that many digits.
template <Grouping kGrouping>
constexpr std::int32_t UnitsOfDigits(std::int32_t digits) {
  return kGrouping == Grouping::kCommas ? digits + (digits - 1) / 3 : digits;
}

// Writes all the digits of the value, with or without commas, to out[0] .. out[units - 1], where
// `units` is UnitsOfDigits of their count. From the right, three digits a step: each store also
// puts a comma before its group, which without grouping the next one overwrites.
template <Grouping kGrouping, typename Value>
inline void WriteNumber(char16_t* out, Value value, std::int32_t units) {
  constexpr std::int32_t kStride = kGrouping == Grouping::kCommas ? 4 : 3;
  std::int32_t end = units;
  while (value >= 1000) {
    const Value rest = value / 1000;
    const auto three = static_cast<std::uint32_t>(value - rest * 1000);
    std::memcpy(out + end - 4, &kDecimalTriples[three], sizeof(detail::CommaAndThreeDigits));
    end -= kStride;
    value = rest;
  }
  // The first group has `end` digits, 1 to 3. Without branches: a digit that it does not have is
  // stored first and overwritten by one that it has.
  const char16_t* const digits = kDecimalTriples[static_cast<std::size_t>(value)].units + 1;
  out[std::max(end - 3, 0)] = digits[0];
  out[std::max(end - 2, 0)] = digits[1];
  out[end - 1] = digits[2];
}

inline constexpr char16_t kHexDigitsLower[] = u"0123456789abcdef";
inline constexpr char16_t kHexDigitsUpper[] = u"0123456789ABCDEF";

// Hexadecimal digits of the value, 1 for 0.
inline std::int32_t CountHexDigits(std::uint64_t value) {
  return static_cast<std::int32_t>((std::bit_width(value | 1) + 3) / 4);
}

// Writes the last `count` hexadecimal digits of the value, filled with zeros on the left.
template <typename Value>
inline void WriteHexDigits(char16_t* out, Value value, std::int32_t count, const char16_t* digits) {
  for (std::int32_t i = count; i > 0; --i) {
    out[i - 1] = digits[value & 0xF];
    value >>= 4;
  }
}

}  // namespace qxfmt
