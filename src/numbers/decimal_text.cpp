#include "numbers/decimal_text.h"

#include <algorithm>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "frame/settings.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"

namespace qxfmt {

namespace {

// One for each grouping, which is a constant then.
template <Grouping kGrouping>
ResultText FormatPlaces(CQXBlockBuffer& arena, double value, std::int32_t places) noexcept {
  return FillResult<kDecimalBlock>(arena, [=](auto block) {
    return WithDecimal(value, places, kGrouping, [=](const auto& decimal) {
      return block.PrintWithin(DecimalLimit(kGrouping), decimal);
    });
  });
}

template <std::uint32_t kBytes>
ResultText FormatTwoPlaces(CQXBlockBuffer& arena, double value) noexcept {
  return FillResult<kBytes>(arena, [value](auto block) {
    return WithDecimal(value, 2, Grouping::kNone,
                       [block](const auto& decimal) { return block.Print(decimal); });
  });
}

}  // namespace

}  // namespace qxfmt

using qxfmt::Grouping;

ResultText CQXDataFormat::FormatNumberEx(double value, std::int32_t places,
                                         std::int32_t grouped) noexcept {
  return grouped != 0 ? qxfmt::FormatPlaces<Grouping::kCommas>(blocks_, value, places)
                      : qxfmt::FormatPlaces<Grouping::kNone>(blocks_, value, places);
}

ResultText CQXDataFormat::FormatNumber(double value, std::int32_t grouped) noexcept {
  return FormatNumberEx(value, qxfmt::settings.number_decimal_places.Get(), grouped);
}

ResultText CQXDataFormat::FormatNumberEx(std::uint64_t value, std::int32_t places,
                                         std::int32_t grouped) noexcept {
  constexpr std::int32_t kMaxLeastDigits = 6;
  const std::int32_t digits = std::clamp(places, 0, kMaxLeastDigits);
  const qxfmt::PaddedDecimal number(value, digits, qxfmt::GroupingOf(grouped));
  return qxfmt::PrintResult<256>(blocks_, number);
}

ResultText CQXDataFormat::FormatDecimal(float value) noexcept {
  return qxfmt::FormatTwoPlaces<128>(blocks_, double{value});
}

ResultText CQXDataFormat::FormatDecimal(double value) noexcept {
  return qxfmt::FormatTwoPlaces<256>(blocks_, value);
}
