#pragma once

// Seconds since 1970-01-01 00:00:00 UTC to calendar fields in the process's local zone. Inline, so
// that the fields stay in registers on their way to the text.

#include <cstdint>
#include <ctime>

#include <qxfmt/block_buffer.h>

#include "platform/platform.h"
#include "time/calendar_fields.h"
#include "time/civil_date.h"

namespace qxfmt {

namespace detail {

// The seconds of a span of time, three days. Spans are counted from 1; the first begins with 1970.
inline constexpr std::int64_t kSpanSeconds = std::int64_t{1} << 18;

// A span is remembered after so many conversions in a row, and that takes three more. Tables whose
// rows show two or three times, years apart from those of the next row, stay below it.
inline constexpr std::uint32_t kMissesToRemember = 4;

// Remembers the span that was missed, if the zone's offset is one value in it.
void RememberMissedSpan(CQXBlockBuffer::ZoneSpan& span) noexcept;

}  // namespace detail

// The fields of an instant, 0 to QXFMT_TIME_LIMIT. False if the platform cannot tell.
//
// The C library converts slowly, and under a lock of the whole process. So the arena remembers
// spans of time in which the zone's offset is one value. There the fields are arithmetic.
//
// Safe beside any other thread that only converts. The zone is the one that the C library holds: it
// reads TZ or the system's zone before its first conversion, and again only when the application
// calls tzset. That call is left to the application on purpose: it reads the environment, which
// another thread may be writing, and would change the zone under everybody else in the process.
inline bool ToLocalTime(CQXBlockBuffer& arena, std::int64_t seconds, CalendarFields& fields) {
  const auto number = static_cast<std::uint32_t>(seconds / detail::kSpanSeconds) + 1;
  CQXBlockBuffer::ZoneSpan& span = arena.zone_span(number);
  if (span.number == number) [[likely]] {
    const auto local = static_cast<std::uint64_t>(seconds + span.offset);  // never before 1970
    fields = CivilTime(static_cast<std::int32_t>(local / 86400),
                       static_cast<std::uint32_t>(local % 86400));
    return true;
  }
  std::tm broken_down;
  if (!ConvertToLocal(seconds, broken_down)) return false;
  span.misses = span.missed == number ? span.misses + 1 : 1;
  span.missed = number;
  if (span.misses == detail::kMissesToRemember) detail::RememberMissedSpan(span);
  const auto narrow = [](int field) { return static_cast<std::uint8_t>(field); };
  fields.year = static_cast<std::uint16_t>(broken_down.tm_year + 1900);
  fields.month = narrow(broken_down.tm_mon + 1);
  fields.day = narrow(broken_down.tm_mday);
  fields.hour = narrow(broken_down.tm_hour);
  fields.minute = narrow(broken_down.tm_min);
  fields.second = narrow(broken_down.tm_sec);
  return true;
}

}  // namespace qxfmt
