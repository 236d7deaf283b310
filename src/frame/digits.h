#pragma once

// Digits of whole numbers, as 16-bit units.

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace qxfmt {

namespace detail {

constexpr std::array<char16_t, 200> MakeDecimalPairs() {
  std::array<char16_t, 200> pairs{};
  for (unsigned i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char16_t>(u'0' + i / 10);
    pairs[2 * i + 1] = static_cast<char16_t>(u'0' + i % 10);
  }
  return pairs;
}

}  // namespace detail

// "00" to "99".
inline constexpr std::array<char16_t, 200> kDecimalPairs = detail::MakeDecimalPairs();

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
  return guess + (value >= kPowersOfTen[guess] ? 1 : 0) + (value == 0 ? 1 : 0);
}

// Writes the two digits of a value below 100.
inline void WriteDigitPair(char16_t* out, std::uint32_t value) {
  std::memcpy(out, &kDecimalPairs[2 * value], 2 * sizeof(char16_t));
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
