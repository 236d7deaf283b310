#pragma once

#include <cstdint>

namespace qxfmt {

// A point of calendar time, as far as texts show it.
struct CalendarFields {
  std::uint16_t year;
  std::uint8_t month;  // 1 to 12
  std::uint8_t day;    // 1 to 31
  std::uint8_t hour;
  std::uint8_t minute;
  std::uint8_t second;  // 60 in a leap second, where the zone's file counts them
};

}  // namespace qxfmt
