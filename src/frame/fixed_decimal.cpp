#include "frame/fixed_decimal.h"

#include <bit>
#include <charconv>
#include <cmath>

#include "frame/decimal_point.h"
#include "frame/digits.h"

namespace qxfmt {

namespace {

// A double is mantissa * 2^shift with a mantissa below 2^53. A fraction F / 2^k in p decimals is
// F * 10^p / 2^k, rounded; the product must fit the widest integer there is.
#if defined(__SIZEOF_INT128__)
__extension__ typedef unsigned __int128 Widest;
constexpr std::int32_t kFastPlaces = 19;  // 53 bits and 10^19 make 117 bits; the digits fit 64
#else
using Widest = std::uint64_t;
constexpr std::int32_t kFastPlaces = 3;  // 53 bits and 10^3 make 63 bits
#endif
constexpr int kWidestBits = 8 * sizeof(Widest);
constexpr int kMantissaBits = 53;

constexpr std::uint64_t kTenTo19 = 10'000'000'000'000'000'000U;

struct Rounded {
  std::uint64_t quotient;
  bool up;  // still to be added, if the last digit that shows is on the odd side of a tie
  bool tie;
};

// product / 2^shift with the direction of the rest. shift: 1 to 1074.
template <typename Product>
Rounded Divide(Product product, int shift) {
  // The product leaves at least the top bit of its type unused: behind that many bits it is below a
  // half.
  if (shift >= static_cast<int>(8 * sizeof(Product))) return {0, false, false};
  const Product rest = product & ((Product{1} << shift) - 1);
  const Product half = Product{1} << (shift - 1);
  return {static_cast<std::uint64_t>(product >> shift), rest > half, rest == half};
}

}  // namespace

bool FixedDecimal::ReadFast(double value, std::int32_t places) {
  if (places > kFastPlaces) return false;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const auto exponent = static_cast<int>((bits >> 52) & 0x7FF);
  const std::uint64_t fraction_bits = bits & ((std::uint64_t{1} << 52) - 1);
  if (exponent == 0x7FF) return false;

  is_general_ = false;
  negative_ = (bits >> 63) != 0;
  places_ = places;
  // A subnormal has the exponent of the smallest normal and no hidden bit.
  const bool fits = exponent == 0 ? ReadFraction(fraction_bits, 1074)
                    : exponent < 1075
                        ? ReadFraction(fraction_bits | (std::uint64_t{1} << 52), 1075 - exponent)
                        : ReadWhole(fraction_bits | (std::uint64_t{1} << 52), exponent - 1075);
  if (fits) CountUnits();
  return fits;
}

// The value mantissa * 2^shift, shift 0 or more: no fraction.
bool FixedDecimal::ReadWhole(std::uint64_t mantissa, int shift) {
  // Below 2^127, so that the part above 10^19 fits 64 bits.
  if (shift > kWidestBits - 1 - kMantissaBits) return false;
  const Widest whole = Widest{mantissa} << shift;
  high_ = static_cast<std::uint64_t>(whole / kTenTo19);
  low_ = static_cast<std::uint64_t>(whole % kTenTo19);
  fraction_ = 0;
  return true;
}

// The value mantissa / 2^shift, shift 1 to 1074.
bool FixedDecimal::ReadFraction(std::uint64_t mantissa, int shift) {
  high_ = 0;
  low_ = shift < 64 ? mantissa >> shift : 0;
  const std::uint64_t rest = shift < 64 ? mantissa & ((std::uint64_t{1} << shift) - 1) : mantissa;
  const std::uint64_t scale = kPowersOfTen[places_];
  const Rounded digits =
      places_ <= 3 ? Divide(rest * scale, shift) : Divide(static_cast<Widest>(rest) * scale, shift);
  // The digit that a tie looks at is the last one that shows.
  const bool odd = ((places_ == 0 ? low_ : digits.quotient) & 1) != 0;
  fraction_ = digits.quotient + (digits.up || (digits.tie && odd) ? 1 : 0);
  if (fraction_ == scale) {
    fraction_ = 0;
    ++low_;
  }
  return true;
}

void FixedDecimal::CountUnits() {
  whole_digits_ = high_ == 0 ? CountDigits(low_) : 19 + CountDigits(high_);
  size_ = (negative_ ? 1 : 0) + whole_digits_ + (places_ == 0 ? 0 : 1 + places_);
}

void FixedDecimal::ReadGeneral(double value, std::int32_t places) {
  is_general_ = true;
  places_ = std::isfinite(value) ? places : 0;
  const std::to_chars_result end =
      std::to_chars(general_, general_ + kGeneralCapacity, value, std::chars_format::fixed, places);
  size_ = static_cast<std::int32_t>(end.ptr - general_);
}

char16_t* FixedDecimal::Write(char16_t* out) const {
  if (is_general_) [[unlikely]]
    return WriteGeneral(out);
  if (negative_) *out++ = u'-';
  if (high_ == 0) {
    WriteDigits(out, low_, whole_digits_);
  } else {
    WriteDigits(out, high_, whole_digits_ - 19);
    WriteDigits(out + whole_digits_ - 19, low_, 19);
  }
  out += whole_digits_;
  if (places_ == 0) return out;
  *out++ = DecimalPoint();
  WriteDigits(out, fraction_, places_);
  return out + places_;
}

char16_t* FixedDecimal::WriteGeneral(char16_t* out) const {
  for (std::int32_t i = 0; i < size_; ++i) {
    out[i] = static_cast<unsigned char>(general_[i]);
  }
  if (places_ > 0) out[size_ - places_ - 1] = DecimalPoint();
  return out + size_;
}

}  // namespace qxfmt
