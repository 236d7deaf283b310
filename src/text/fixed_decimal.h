#pragma once

// The text that "%.*f" gives for a double: its exact binary value, rounded to the places, exact
// ties to the even digit, with commas in the whole part where they are asked for.
//
// Two paths to the same digits: ShortDecimal takes what occurs in practice, by integer arithmetic
// and in registers; LongDecimal takes any double. WithDecimal chooses between the two.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "platform/platform.h"
#include "text/decimal_point.h"
#include "text/digits.h"
#include "text/field.h"

namespace qxfmt {

inline constexpr std::int32_t kMaxPlaces = 32;

namespace detail {

// A double is mantissa * 2^-shift with a mantissa below 2^53. Its fraction in p decimals is
// rest * 10^p / 2^shift, rounded; the product has to fit the widest integer that there is.
inline constexpr std::int32_t kNarrowPlaces = 3;  // 53 bits and 10^3 make 63 bits
// In 128 bits 19: 53 bits and 10^19 make 117 bits.
inline constexpr std::int32_t kShortPlaces = sizeof(Widest) == 16 ? 19 : kNarrowPlaces;
inline constexpr int kMantissaBits = 53;
inline constexpr int kWholeExponent = 1075;  // of a double whose mantissa counts ones
inline constexpr int kWidestBits = 8 * sizeof(Widest);
inline constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << (kMantissaBits - 1);

// product / 2^shift, rounded to nearest; a tie goes up if the digit before it is odd, which for
// lack of a digit in the quotient itself (0 places) is `whole`. shift: 1 to the bits of the product
// less 1. The product leaves the top bit of its type unused.
template <typename Product>
inline std::uint64_t DivideRounded(Product product, int shift, std::uint64_t whole,
                                   std::int32_t places) {
  const auto quotient = static_cast<std::uint64_t>(product >> shift);
  const Product rest = product & ((Product{1} << shift) - 1);
  const Product half = Product{1} << (shift - 1);
  const std::uint64_t odd = (places == 0 ? whole : quotient) & 1;
  return quotient + (rest + odd > half ? 1 : 0);
}

}  // namespace detail

// A double with a whole part below 2^64 and not too many places, as a field.
class ShortDecimal {
 public:
  static constexpr std::int32_t kMaxSize = 1 + 26 + 1 + detail::kShortPlaces;
  static constexpr std::int32_t kSlack = 1;

  // False if the value is for LongDecimal. places: 0 to kMaxPlaces.
  [[gnu::always_inline]] bool Read(double value, std::int32_t places, Grouping grouping) {
    if (places > detail::kShortPlaces) return false;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>(bits >> 52) & 0x7FF;
    const int shift = detail::kWholeExponent - exponent;
    // Zeros and subnormal numbers have no hidden bit, but they are 0 in all these places anyway.
    const std::uint64_t mantissa = (bits & (detail::kHiddenBit - 1)) | detail::kHiddenBit;
    negative_ = (bits >> 63) != 0;
    places_ = places;
    grouping_ = grouping;
    if (shift > 0) [[likely]] {
      ReadFraction(mantissa, shift);
      return true;
    }
    if (shift < detail::kMantissaBits - 64) return false;
    whole_ = mantissa << -shift;
    fraction_ = 0;
    return true;
  }

  [[gnu::always_inline]] char16_t* Write(char16_t* out) const {
    out = Minus(negative_).Write(out);
    out = grouping_ == Grouping::kCommas ? WriteWhole<Grouping::kCommas>(out, whole_)
                                         : WriteWhole<Grouping::kNone>(out, whole_);
    if (places_ == 0) return out;
    if (places_ == 2) {
      return WriteSeparatedPair(out, DecimalPoint(), static_cast<std::uint32_t>(fraction_));
    }
    *out = DecimalPoint();
    return WriteFilled(out + 1, fraction_, places_);
  }

 private:
  // mantissa / 2^shift, shift 1 to 1075.
  void ReadFraction(std::uint64_t mantissa, int shift) {
    const std::uint64_t scale = kPowersOfTen[static_cast<std::size_t>(places_)];
    if (places_ <= detail::kNarrowPlaces) {
      // Over 2^64 and more it rounds to 0. Without a branch, since rates are 0 as often as not.
      const int fits = shift < 64 ? 1 : 0;
      mantissa &= 0 - static_cast<std::uint64_t>(fits);
      shift |= fits - 1;  // shifts take the low six bits
      shift &= 63;
      whole_ = mantissa >> shift;
      const std::uint64_t rest = mantissa & ((std::uint64_t{1} << shift) - 1);
      fraction_ = detail::DivideRounded(rest * scale, shift, whole_, places_);
    } else {
      const bool has_whole = shift < detail::kMantissaBits;
      whole_ = has_whole ? mantissa >> shift : 0;
      const std::uint64_t rest = mantissa - (has_whole ? whole_ << shift : 0);
      fraction_ =
          shift < detail::kWidestBits
              ? detail::DivideRounded(static_cast<Widest>(rest) * scale, shift, whole_, places_)
              : 0;
    }
    if (fraction_ == scale) [[unlikely]] {
      fraction_ = 0;
      ++whole_;
    }
  }

  bool negative_;
  Grouping grouping_;
  std::int32_t places_;
  std::uint64_t whole_;
  std::uint64_t fraction_;
};

// Any double as a field. NaN and infinities have neither places nor commas.
class LongDecimal {
  // Sign, 309 integer digits of the largest double, point, places.
  static constexpr std::int32_t kMaxUnits = 1 + 309 + 1 + kMaxPlaces;

 public:
  static constexpr std::int32_t kMaxSize = kMaxUnits + 309 / 3;
  static constexpr std::int32_t kSlack = 0;

  // places: 0 to kMaxPlaces.
  LongDecimal(double value, std::int32_t places, Grouping grouping) noexcept;

  std::size_t size() const noexcept {
    return static_cast<std::size_t>(size_) + static_cast<std::size_t>(commas_);
  }
  char16_t* Write(char16_t* out) const noexcept;

 private:
  char text_[kMaxUnits];  // without commas
  std::int32_t size_;
  std::int32_t decimals_;  // with the point
  std::int32_t commas_;
};

// Returns what `use(decimal)` returns. places: any; they are capped to 0..kMaxPlaces.
template <typename Use>
[[gnu::always_inline]] inline auto WithDecimal(double value, std::int32_t places, Grouping grouping,
                                               Use use) {
  places = std::clamp(places, 0, kMaxPlaces);
  ShortDecimal decimal;
  if (decimal.Read(value, places, grouping)) [[likely]]
    return use(decimal);
  return use(LongDecimal(value, places, grouping));
}

}  // namespace qxfmt
