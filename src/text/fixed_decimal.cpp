#include "text/fixed_decimal.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace qxfmt {

namespace {

// By hand, since the standard libraries' words for a NaN differ.
std::string_view WordOf(double not_finite) noexcept {
  const std::string_view word = std::isnan(not_finite) ? "-nan" : "-inf";
  return std::signbit(not_finite) ? word : word.substr(1);
}

}  // namespace

LongDecimal::LongDecimal(double value, std::int32_t places, Grouping grouping) noexcept {
  const bool is_finite = std::isfinite(value);
  const char* const end =
      is_finite
          ? std::to_chars(text_, text_ + sizeof(text_), value, std::chars_format::fixed, places).ptr
          : text_ + WordOf(value).copy(text_, sizeof(text_));
  size_ = static_cast<std::int32_t>(end - text_);
  decimals_ = is_finite && places > 0 ? 1 + places : 0;
  const std::int32_t whole_digits = size_ - decimals_ - (std::signbit(value) ? 1 : 0);
  commas_ = is_finite && grouping == Grouping::kCommas ? (whole_digits - 1) / 3 : 0;
}

char16_t* LongDecimal::Write(char16_t* out) const noexcept {
  const std::int32_t head = size_ - decimals_ - 3 * commas_;  // before the first comma
  const char* from = text_;
  const auto widen = [&](std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) out[i] = static_cast<char16_t>(from[i]);
    out += count;
    from += count;
  };
  widen(commas_ == 0 ? size_ : head);
  for (std::int32_t i = 0; i < commas_; ++i) {
    *out++ = u',';
    widen(3);
  }
  if (commas_ != 0) widen(decimals_);
  if (decimals_ > 0) out[-decimals_] = DecimalPoint();
  return out;
}

}  // namespace qxfmt
