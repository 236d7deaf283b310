// OLE automation dates.

#include <cmath>
#include <cstdint>
#include <string_view>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "time/calendar_text.h"

namespace qxfmt {

namespace {

constexpr std::int32_t kFirstDay = -657434;  // 0100-01-01
constexpr std::int32_t kLastDay = 2958465;   // 9999-12-31
constexpr std::int32_t kSecondsPerDay = 86400;

// A failed conversion: every field reads as -1, which fills a field of two digits.
std::u16string_view NoDate(QXFMT_DATE_FORMAT layout) {
  return layout == QXFMT_DATE_MONTH_NAME ? u"-1 -1, -1 -1:-1:-1" : u"-1/-1/-1 -1:-1:-1";
}

// The date of a day in the proleptic Gregorian calendar, after Howard Hinnant's civil_from_days.
//
// Years are counted from March, so that a leap day is the last of its year, and days from March 1st
// of the year 0, which lies 693899 days before 1899-12-30. The calendar repeats every 400 years =
// 146097 days. Within such an era the year is the day over 365, once the leap days before it (one
// in 1461 days, none in 36524, and one again at the era's last day) are taken away. Months from
// March on have 31, 30, 31, 30, 31 days over and over, 153 in five of them: month m begins on day
// (153 * m + 2) / 5 of its year, and day d lies in month (5 * d + 2) / 153.
void SetDate(std::int32_t ole_day, CalendarFields& fields) {
  const auto day = static_cast<std::uint32_t>(ole_day + 693899);  // 36465 or more: never negative
  const std::uint32_t era = day / 146097;
  const std::uint32_t day_of_era = day % 146097;
  const std::uint32_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::uint32_t day_of_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::uint32_t march_month = (5 * day_of_year + 2) / 153;
  const std::uint32_t month = march_month < 10 ? march_month + 3 : march_month - 9;

  fields.year = static_cast<std::uint16_t>(400 * era + year_of_era + (month <= 2 ? 1 : 0));
  fields.month = static_cast<std::uint8_t>(month);
  fields.day = static_cast<std::uint8_t>(day_of_year - (153 * march_month + 2) / 5 + 1);
}

void SetTimeOfDay(std::int32_t second_of_day, CalendarFields& fields) {
  fields.hour = static_cast<std::uint8_t>(second_of_day / 3600);
  fields.minute = static_cast<std::uint8_t>(second_of_day / 60 % 60);
  fields.second = static_cast<std::uint8_t>(second_of_day % 60);
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
  SetDate(day, fields);
  SetTimeOfDay(second, fields);
  return true;
}

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatOleDateTime(double date, QXFMT_DATE_FORMAT layout) {
  return qxfmt::FillResult<128>(blocks_, [&](auto block) {
    const QXFMT_DATE_FORMAT resolved = qxfmt::ResolveLayout(layout);
    qxfmt::CalendarFields fields;
    if (!qxfmt::FromOleDate(date, fields)) return block.Print(qxfmt::NoDate(resolved));
    return block.Print(qxfmt::Date(fields, resolved), u' ', qxfmt::TimeOfDay(fields));
  });
}
