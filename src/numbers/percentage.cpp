#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "frame/settings.h"
#include "numbers/decimal_text.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"

namespace {

using qxfmt::settings;

// A setting of decimals by name, a grouping switch by use.
qxfmt::Grouping GroupingSetting() {
  return qxfmt::GroupingOf(settings.percentage_decimal_places.Get());
}

}  // namespace

ResultText CQXDataFormat::FormatPercentage(std::int32_t value) noexcept {
  // Wraps modulo 2^32, which only unsigned arithmetic may.
  const auto product = static_cast<std::int32_t>(static_cast<std::uint32_t>(value) * 100U);
  return qxfmt::PrintResult<128>(blocks_, qxfmt::Decimal(product, GroupingSetting()), u'%');
}

ResultText CQXDataFormat::FormatPercentage(float value) noexcept {
  const float product = value * 100.0F;  // single precision shows in the digits
  return qxfmt::FillResult<qxfmt::kDecimalBlock>(blocks_, [&](auto block) {
    // The longest product leaves room for the sign.
    return qxfmt::WithDecimal(double{product}, settings.number_decimal_places.Get(),
                              GroupingSetting(),
                              [&](const auto& decimal) { return block.Print(decimal, u'%'); });
  });
}
