// OLE automation dates.

#include <cmath>
#include <cstdint>
#include <string_view>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "time/calendar_text.h"
#include "time/civil_date.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kFirstDay = -657434;  // 0100-01-01
constexpr std::int32_t kLastDay = 2958465;   // 9999-12-31
constexpr std::int32_t kDayOf1970 = 25569;
constexpr std::int32_t kSecondsPerDay = 86400;

// A failed conversion: every field reads as -1, which fills a field of two digits.
std::u16string_view NoDate(QXFMT_DATE_FORMAT layout) {
  return layout == QXFMT_DATE_MONTH_NAME ? u"-1 -1, -1 -1:-1:-1" : u"-1/-1/-1 -1:-1:-1";
}

// The whole part counts days from 1899-12-30, the fraction's absolute value is the time of day, for
// negative dates too. Rounded to the nearest second, a half up, which may carry into the next day.
// False outside the years 100 to 9999, before or after the carry, and for a NaN or an infinity.
bool FromOleDate(double date, CalendarFields& fields) {
  // False for a NaN as well. Inside, the whole part fits 32 bits.
  if (!(date > kFirstDay - 1 && date < kLastDay + 1)) return false;
  auto day = static_cast<std::int32_t>(date);
  const double fraction = std::fabs(date - day);  // exact: its bits are the date's own
  auto second = static_cast<std::int32_t>(std::lround(fraction * kSecondsPerDay));
  if (second == kSecondsPerDay) {
    second = 0;
    if (++day > kLastDay) return false;
  }
  fields = CivilTime(day - kDayOf1970, static_cast<std::uint32_t>(second));
  return true;
}

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatOleDateTime(double date, QXFMT_DATE_FORMAT layout) noexcept {
  return qxfmt::FillResult<128>(blocks_, [date, layout](auto block) {
    const QXFMT_DATE_FORMAT resolved = qxfmt::ResolveLayout(layout);
    qxfmt::CalendarFields fields;
    if (!qxfmt::FromOleDate(date, fields)) return block.Print(qxfmt::NoDate(resolved));
    return block.Print(qxfmt::Date(fields, resolved), u' ', qxfmt::TimeOfDay(fields));
  });
}
