#pragma once

// The text that "%.*f" gives for a double: its exact binary value, rounded to the places, exact
// ties to the even digit.

#include <cstdint>

namespace qxfmt {

class FixedDecimal {
 public:
  static constexpr std::int32_t kMaxPlaces = 32;

  // places: 0 to kMaxPlaces.
  FixedDecimal(double value, std::int32_t places) {
    if (!ReadFast(value, places)) ReadGeneral(value, places);
  }

  std::int32_t size() const { return size_; }

  // Writes size() units, without a terminator, and returns the end.
  char16_t* Write(char16_t* out) const;

  // The value by exact integer arithmetic, if it is inside that path's range: finite, below 2^127
  // and with at most kFastPlaces. False leaves the object unread.
  bool ReadFast(double value, std::int32_t places);

  // Any value, through the standard library's exact conversion.
  void ReadGeneral(double value, std::int32_t places);

 private:
  bool ReadWhole(std::uint64_t mantissa, int shift);
  bool ReadFraction(std::uint64_t mantissa, int shift);
  void CountUnits();
  char16_t* WriteGeneral(char16_t* out) const;

  // Sign, 309 integer digits of the largest double, point, places.
  static constexpr std::int32_t kGeneralCapacity = 1 + 309 + 1 + kMaxPlaces;

  std::int32_t size_;
  std::int32_t places_;
  bool is_general_;

  // The fast path's number is high * 10^19 + low, point, fraction in `places_` digits.
  bool negative_;
  std::int32_t whole_digits_;
  std::uint64_t high_;
  std::uint64_t low_;
  std::uint64_t fraction_;

  char general_[kGeneralCapacity];  // only written by ReadGeneral
};

}  // namespace qxfmt
