#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "text/decimal.h"

using qxfmt::Decimal;
using qxfmt::GroupingOf;
using qxfmt::PrintResult;

ResultText CQXDataFormat::FormatNumber(std::uint64_t value, std::int32_t grouped) noexcept {
  return PrintResult<256>(blocks_, Decimal(value, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatNumber(std::int64_t value, std::int32_t grouped) noexcept {
  return PrintResult<256>(blocks_, Decimal(value, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatNumber(std::uint32_t value, std::int32_t grouped) noexcept {
  return PrintResult<128>(blocks_, Decimal(value, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatNumber(std::int32_t value, std::int32_t grouped) noexcept {
  return PrintResult<128>(blocks_, Decimal(value, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatNumber(std::uint16_t value, std::int32_t grouped) noexcept {
  return PrintResult<64>(blocks_, Decimal(value, GroupingOf(grouped)));
}

ResultText CQXDataFormat::FormatNumber(std::int16_t value, std::int32_t grouped) noexcept {
  return PrintResult<64>(blocks_, Decimal(value, GroupingOf(grouped)));
}
