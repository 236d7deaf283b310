#pragma once

// Whole numbers as fields.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "text/digits.h"
#include "text/field.h"

namespace qxfmt {

// The value without its sign. Right for the most negative one, too.
template <typename Value>
constexpr std::make_unsigned_t<Value> MagnitudeOf(Value value) {
  const auto bits = static_cast<std::make_unsigned_t<Value>>(value);
  return value < 0 ? static_cast<std::make_unsigned_t<Value>>(0 - bits) : bits;
}

// A whole number in as many digits as it needs.
template <typename Value>
class Decimal {
  using Magnitude = std::make_unsigned_t<Value>;
  static constexpr bool kIsShort = sizeof(Value) <= 2;
  static constexpr std::int32_t kMaxDigits = sizeof(Value) == 8 ? 20 : kIsShort ? 5 : 10;

 public:
  static constexpr std::int32_t kMaxSize = 1 + UnitsOfDigits<Grouping::kCommas>(kMaxDigits);
  static constexpr std::int32_t kSlack = std::max(1 + kWholeRoom<Value> - kMaxSize, 1);

  explicit Decimal(Value value, Grouping grouping = Grouping::kNone)
      : negative_(value < 0), magnitude_(MagnitudeOf(value)), grouping_(grouping) {}

  char16_t* Write(char16_t* out) const {
    if constexpr (std::is_signed_v<Value>) out = Minus(negative_).Write(out);
    if (grouping_ == Grouping::kCommas) {
      return WriteWhole<Grouping::kCommas>(out, magnitude_);
    }
    if constexpr (kIsShort) {
      return WriteUpToFive(out, magnitude_);
    } else {
      return WriteWhole<Grouping::kNone>(out, magnitude_);
    }
  }

 private:
  bool negative_;
  Magnitude magnitude_;
  Grouping grouping_;
};

// A magnitude in at least so many digits, filled with zeros on the left. 0 digits write no 0.
class PaddedDecimal {
 public:
  static constexpr std::int32_t kMaxSize = kUnbounded;
  static constexpr std::int32_t kSlack = 0;

  PaddedDecimal(std::uint64_t magnitude, std::int32_t least_digits, Grouping grouping)
      : magnitude_(magnitude),
        digits_(std::max(magnitude == 0 ? 0 : CountDigits(magnitude), least_digits)),
        grouping_(grouping) {}

  std::size_t size() const {
    return digits_ == 0 ? 0 : static_cast<std::size_t>(UnitsOfDigits(digits_, grouping_));
  }

  char16_t* Write(char16_t* out) const {
    if (digits_ == 0) return out;
    return grouping_ == Grouping::kCommas ? WriteFilled<Grouping::kCommas>(out, magnitude_, digits_)
                                          : WriteFilled(out, magnitude_, digits_);
  }

 private:
  std::uint64_t magnitude_;
  std::int32_t digits_;
  Grouping grouping_;
};

}  // namespace qxfmt
