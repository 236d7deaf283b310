#pragma once

// Calendar fields by arithmetic alone: nothing here knows of zones.

#include <chrono>
#include <cstdint>

#include "time/calendar_fields.h"

namespace qxfmt {

// day: counted from 1970-01-01, in the proleptic Gregorian calendar. second: of the day.
inline CalendarFields CivilTime(std::int32_t day, std::uint32_t second) {
  const std::chrono::year_month_day date = std::chrono::sys_days(std::chrono::days(day));
  const auto narrow = [](std::uint32_t field) { return static_cast<std::uint8_t>(field); };
  return {static_cast<std::uint16_t>(int{date.year()}),
          narrow(unsigned{date.month()}),
          narrow(unsigned{date.day()}),
          narrow(second / 3600),
          narrow(second / 60 % 60),
          narrow(second % 60)};
}

}  // namespace qxfmt
