#include "frame/fixed_decimal.h"

#include <charconv>
#include <cmath>

namespace qxfmt {

void GeneralDecimal::Read(double value, std::int32_t places) {
  places_ = std::isfinite(value) ? places : 0;
  const std::to_chars_result end =
      std::to_chars(text_, text_ + sizeof(text_), value, std::chars_format::fixed, places);
  size_ = static_cast<std::int32_t>(end.ptr - text_);
}

char16_t* GeneralDecimal::Write(char16_t* out) const {
  for (std::int32_t i = 0; i < size_; ++i) out[i] = static_cast<unsigned char>(text_[i]);
  if (places_ > 0) out[size_ - places_ - 1] = DecimalPoint();
  return out + size_;
}

}  // namespace qxfmt
