#include "text/fixed_decimal.h"

#include <charconv>
#include <cmath>

namespace qxfmt {

void GeneralDecimal::Read(double value, std::int32_t places) {
  const std::to_chars_result end =
      std::to_chars(text_, text_ + sizeof(text_), value, std::chars_format::fixed, places);
  size_ = static_cast<std::int32_t>(end.ptr - text_);
  const bool has_digits = std::isfinite(value);
  places_ = has_digits ? places : 0;
  const std::int32_t decimals = places_ > 0 ? 1 + places_ : 0;
  whole_digits_ = has_digits ? size_ - decimals - (std::signbit(value) ? 1 : 0) : 0;
}

std::int32_t GeneralDecimal::size(Grouping grouping) const {
  const bool has_commas = grouping == Grouping::kCommas && whole_digits_ > 0;
  return size_ + (has_commas ? (whole_digits_ - 1) / 3 : 0);
}

char16_t* GeneralDecimal::Write(char16_t* out, Grouping grouping) const {
  const std::int32_t point = places_ > 0 ? size_ - places_ - 1 : size_;
  const std::int32_t first_digit = point - whole_digits_;
  for (std::int32_t i = 0; i < size_; ++i) {
    const std::int32_t digits_left = point - i;
    const bool has_comma = grouping == Grouping::kCommas && i > first_digit && i < point;
    if (has_comma && digits_left % 3 == 0) *out++ = u',';
    *out++ = i == point ? DecimalPoint() : static_cast<char16_t>(text_[i]);
  }
  return out;
}

}  // namespace qxfmt
