#pragma once

// The decimals of a second: 0, 3, 6 or 9. All that differs among the twins of an operation follows
// from their count.

#include <cstdint>

#include "text/decimal.h"
#include "text/digits.h"
#include "text/field.h"

namespace qxfmt {

template <int kDecimals>
inline constexpr auto kUnitsPerSecond = static_cast<std::int64_t>(kPowersOfTen[kDecimals]);

// The point and the decimals; no text for 0 decimals.
template <int kDecimals>
class Fraction {
 public:
  static constexpr std::int32_t kMaxSize = kDecimals == 0 ? 0 : 2 + kDecimals;
  static constexpr std::int32_t kSlack = 1;

  // A negative value is printed as a number of that width: ".-05".
  explicit Fraction(std::int32_t value) : value_(value) {}

  char16_t* Write(char16_t* out) const {
    if constexpr (kDecimals == 0) return out;
    *out++ = u'.';
    if (value_ < 0) [[unlikely]]
      return WriteNegative(out);
    return WriteFilled(out, static_cast<std::uint32_t>(value_), kDecimals);
  }

 private:
  char16_t* WriteNegative(char16_t* out) const {
    *out = u'-';
    return PaddedDecimal(MagnitudeOf(value_), kDecimals - 1, Grouping::kNone).Write(out + 1);
  }

  std::int32_t value_;
};

}  // namespace qxfmt
