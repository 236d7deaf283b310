#pragma once

// The text that "%.*f" gives for a double: its exact binary value, rounded to the places, exact
// ties to the even digit, with commas in the whole part where they are asked for. Two paths to the
// same digits: integer arithmetic for what occurs in practice, the standard library's exact
// conversion for the rest.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "text/decimal_point.h"
#include "text/digits.h"

namespace qxfmt {

inline constexpr std::int32_t kMaxPlaces = 32;

namespace detail {

// A double is mantissa * 2^shift with a mantissa below 2^53. A fraction F / 2^k in p decimals is
// F * 10^p / 2^k, rounded; the product has to fit the widest integer that there is.
#if defined(__SIZEOF_INT128__)
__extension__ using Widest = unsigned __int128;
inline constexpr std::int32_t kFastPlaces = 19;  // 53 bits and 10^19 make 117 bits
inline constexpr int kFastShift = 70;            // below 2^123: what is above 10^18 fits 64 bits
#else
using Widest = std::uint64_t;
inline constexpr std::int32_t kFastPlaces = 3;  // 53 bits and 10^3 make 63 bits
inline constexpr int kFastShift = 11;
#endif

inline constexpr std::int32_t kNarrowPlaces = 3;
inline constexpr int kMantissaBits = 53;
inline constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << (kMantissaBits - 1);
inline constexpr std::int32_t kLowDigits = 18;

// product / 2^shift, rounded to nearest; a tie goes up if the digit before it is odd, which for
// lack of a digit in the quotient itself (0 places) is `whole`. shift: 1 to 1074.
template <typename Product>
inline std::uint64_t DivideRounded(Product product, int shift, std::uint64_t whole,
                                   std::int32_t places) {
  // The product leaves the top bit of its type unused, so that it is below a half from there on.
  if (shift >= static_cast<int>(8 * sizeof(Product))) return 0;
  const auto quotient = static_cast<std::uint64_t>(product >> shift);
  const Product rest = product & ((Product{1} << shift) - 1);
  const Product half = Product{1} << (shift - 1);
  const std::uint64_t odd = (places == 0 ? whole : quotient) & 1;
  return quotient + (rest + odd > half ? 1 : 0);
}

}  // namespace detail

// A finite double by integer arithmetic: sign, whole part, point, fraction. A whole part of 2^64 or
// more is high * 10^18 + low.
class FastDecimal {
 public:
  // False if the value lies outside of this path: not finite, 2^123 or more, or too many places.
  bool Read(double value, std::int32_t places) {
    if (places > detail::kFastPlaces) return false;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>(bits >> 52) & 0x7FF;
    const std::uint64_t mantissa = bits & (detail::kHiddenBit - 1);
    negative_ = static_cast<std::int32_t>(bits >> 63);
    places_ = places;
    if (exponent >= 1 && exponent < 1075) [[likely]] {
      ReadFraction(mantissa | detail::kHiddenBit, 1075 - exponent);
    } else if (exponent == 0) {
      ReadFraction(mantissa, 1074);  // a subnormal: no hidden bit, the smallest normal's exponent
    } else if (!ReadWhole(mantissa | detail::kHiddenBit, exponent - 1075)) {
      return false;
    }
    whole_digits_ = high_ == 0 ? CountDigits(low_) : detail::kLowDigits + CountDigits(high_);
    return true;
  }

  std::int32_t size(Grouping grouping) const {
    const std::int32_t decimals = places_ == 0 ? 0 : 1 + places_;
    return negative_ + UnitsOfDigits(whole_digits_, grouping) + decimals;
  }

  char16_t* Write(char16_t* out, Grouping grouping) const {
    *out = u'-';
    out += negative_;
    out = grouping == Grouping::kCommas ? WriteWhole<Grouping::kCommas>(out)
                                        : WriteWhole<Grouping::kNone>(out);
    if (places_ == 0) return out;
    if (places_ == 2) {
      return WriteSeparatedPair(out, DecimalPoint(), static_cast<std::uint32_t>(fraction_));
    }
    *out = DecimalPoint();
    return WriteDigits(out + 1, fraction_, places_);
  }

 private:
  // mantissa / 2^shift, shift 1 to 1074.
  void ReadFraction(std::uint64_t mantissa, int shift) {
    const bool has_whole = shift < detail::kMantissaBits;
    high_ = 0;
    low_ = has_whole ? mantissa >> shift : 0;
    const std::uint64_t rest = has_whole ? mantissa & ((std::uint64_t{1} << shift) - 1) : mantissa;
    const std::uint64_t scale = kPowersOfTen[places_];
    fraction_ = places_ <= detail::kNarrowPlaces
                    ? detail::DivideRounded(rest * scale, shift, low_, places_)
                    : detail::DivideRounded(static_cast<detail::Widest>(rest) * scale, shift, low_,
                                            places_);
    if (fraction_ == scale) [[unlikely]] {
      fraction_ = 0;
      ++low_;
    }
  }

  // mantissa * 2^shift, shift 0 or more: no fraction.
  bool ReadWhole(std::uint64_t mantissa, int shift) {
    if (shift > detail::kFastShift) return false;
    fraction_ = 0;
    if (shift <= 64 - detail::kMantissaBits) {
      high_ = 0;
      low_ = mantissa << shift;
      return true;
    }
    const detail::Widest whole = static_cast<detail::Widest>(mantissa) << shift;
    high_ = static_cast<std::uint64_t>(whole / kPowersOfTen[detail::kLowDigits]);
    low_ = static_cast<std::uint64_t>(whole % kPowersOfTen[detail::kLowDigits]);
    return true;
  }

  template <Grouping kGrouping>
  char16_t* WriteWhole(char16_t* out) const {
    if (high_ == 0) [[likely]] {
      return WriteDigits<kGrouping>(out, low_, whole_digits_);
    }
    // 18 is a multiple of three, so that the commas of the two parts agree.
    out = WriteDigits<kGrouping>(out, high_, whole_digits_ - detail::kLowDigits);
    if (kGrouping == Grouping::kCommas) *out++ = u',';
    return WriteDigits<kGrouping>(out, low_, detail::kLowDigits);
  }

  std::int32_t negative_;  // 1 or 0
  std::int32_t places_;
  std::int32_t whole_digits_;
  std::uint64_t high_;
  std::uint64_t low_;
  std::uint64_t fraction_;
};

// Any double, through std::to_chars. NaN and infinities have neither places nor commas.
class GeneralDecimal {
 public:
  void Read(double value, std::int32_t places);
  std::int32_t size(Grouping grouping) const;
  char16_t* Write(char16_t* out, Grouping grouping) const;

  // Sign, 309 integer digits of the largest double, point, places.
  static constexpr std::int32_t kMaxSize = 1 + 309 + 1 + kMaxPlaces;

 private:
  char text_[kMaxSize];
  std::int32_t size_;
  std::int32_t places_;
  std::int32_t whole_digits_;  // 0 for NaN and infinities
};

// A double as a field.
class FixedDecimal {
 public:
  static constexpr std::int32_t kMaxSize = GeneralDecimal::kMaxSize + 309 / 3;
  static constexpr std::int32_t kSlack = 1;

  // places: any; negative ones act as 0, and there are never more than kMaxPlaces.
  FixedDecimal(double value, std::int32_t places, Grouping grouping = Grouping::kNone)
      : grouping_(grouping) {
    places = std::clamp(places, 0, kMaxPlaces);
    is_fast_ = fast_.Read(value, places);
    if (!is_fast_) [[unlikely]]
      general_.Read(value, places);
  }

  std::size_t size() const {
    return static_cast<std::size_t>(is_fast_ ? fast_.size(grouping_) : general_.size(grouping_));
  }

  char16_t* Write(char16_t* out) const {
    return is_fast_ ? fast_.Write(out, grouping_) : general_.Write(out, grouping_);
  }

 private:
  FastDecimal fast_;
  GeneralDecimal general_;  // untouched, and so free of cost, where the fast path serves
  Grouping grouping_;
  bool is_fast_;
};

}  // namespace qxfmt
