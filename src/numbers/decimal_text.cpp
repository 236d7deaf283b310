#include "numbers/decimal_text.h"

#include <algorithm>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "frame/settings.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"

using qxfmt::FixedDecimal;
using qxfmt::Grouping;
using qxfmt::GroupingOf;
using qxfmt::PrintResult;

ResultText CQXDataFormat::FormatNumberEx(double value, std::int32_t places, std::int32_t grouped) {
  return qxfmt::FillResult<qxfmt::kDecimalBlock>(blocks_, [&](auto block) {
    const Grouping grouping = GroupingOf(grouped);
    return block.PrintWithin(qxfmt::DecimalLimit(grouping), FixedDecimal(value, places, grouping));
  });
}

ResultText CQXDataFormat::FormatNumber(double value, std::int32_t grouped) {
  return FormatNumberEx(value, qxfmt::settings.number_decimal_places.Get(), grouped);
}

ResultText CQXDataFormat::FormatNumberEx(std::uint64_t value, std::int32_t places,
                                         std::int32_t grouped) {
  constexpr std::int32_t kMaxLeastDigits = 6;
  const std::int32_t digits = std::clamp(places, 0, kMaxLeastDigits);
  return PrintResult<256>(blocks_, qxfmt::PaddedDecimal(value, digits, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatDecimal(float value) {
  return PrintResult<128>(blocks_, FixedDecimal(double{value}, 2));
}

ResultText CQXDataFormat::FormatDecimal(double value) {
  return PrintResult<256>(blocks_, FixedDecimal(value, 2));
}
