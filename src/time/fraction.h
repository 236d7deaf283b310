#pragma once

// The decimals of a second: 0, 3, 6 or 9. All that differs among the twins of an operation follows
// from their count.

#include <cstdint>

#include "text/decimal.h"
#include "text/digits.h"
#include "text/field.h"

namespace qxfmt {

template <int kDecimals>
inline constexpr auto kPerSecond = static_cast<std::int64_t>(kPowersOfTen[kDecimals]);

// The point and the decimals; no text for 0 decimals.
template <int kDecimals>
class Fraction {
 public:
  static constexpr std::int32_t kMaxSize = kDecimals == 0 ? 0 : 2 + kDecimals;
  static constexpr std::int32_t kSlack = 1;

  // A negative value is printed as a number of that width: ".-05".
  explicit Fraction(std::int32_t value) : value_(value) {}

  char16_t* Write(char16_t* out) const {
    if constexpr (kDecimals == 0) {
      return out;
    } else {
      if (value_ < 0) [[unlikely]]
        return WriteNegative(out);
      // The point takes the place of the comma before the first three digits.
      constexpr std::uint32_t kRest = kPerSecond<kDecimals> / 1'000;
      const auto value = static_cast<std::uint32_t>(value_);
      StoreLanes(out, kSmallNumbers.filled[value / kRest] ^ (u',' ^ u'.'));
      return WriteThousands<kDecimals / 3 - 1>(out + 4, value % kRest);
    }
  }

 private:
  char16_t* WriteNegative(char16_t* out) const {
    out[0] = u'.';
    out[1] = u'-';
    return PaddedDecimal(MagnitudeOf(value_), kDecimals - 1, Grouping::kNone).Write(out + 2);
  }

  std::int32_t value_;
};

}  // namespace qxfmt
