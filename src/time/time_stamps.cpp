// Timestamps with a fraction of a second.

#include <cstdint>

#include <qxfmt/data_format.h>

#include "frame/bounded_print.h"
#include "frame/result_block.h"
#include "time/calendar_text.h"

namespace qxfmt {

namespace {

using StampBlock = ResultBlock<128>;

// Behind a date and a time of day, 23 units at most, there is still more room.
constexpr std::int32_t kFractionLimit = 32;

// A count of units since 1970, split into whole seconds and the rest: the rest has the sign of a
// count within the second before 1970, which is second 0 too.
template <std::int64_t kUnitsPerSecond>
struct Instant {
  explicit Instant(std::int64_t count)
      : seconds(count / kUnitsPerSecond),
        remainder(static_cast<std::int32_t>(count % kUnitsPerSecond)) {}

  std::int64_t seconds;
  std::int32_t remainder;
};

template <std::int64_t kUnitsPerSecond, Pattern kFraction>
ResultText FormatDatedStamp(CQXBlockBuffer& arena, std::int64_t count, QXFMT_DATE_FORMAT layout) {
  if (count == 0) return kEmptyText;
  const Instant<kUnitsPerSecond> instant(count);
  CalendarFields fields;
  if (const ResultText refusal = AdmitSeconds(instant.seconds, fields)) return refusal;
  const StampBlock block(arena);
  if (block.missing()) return kMemoryError;
  char16_t* const date_end = WriteDatePart(arena, block.units(), instant.seconds, fields, layout);
  char16_t* const time_end = WriteTimeBehindDate(date_end, fields);
  BoundedPrint<kFraction>(time_end, kFractionLimit, instant.remainder);
  return block.Finish();
}

template <std::int64_t kUnitsPerSecond, Pattern kFraction>
ResultText FormatStamp(CQXBlockBuffer& arena, std::int64_t count) {
  if (count == 0) return kEmptyText;
  const Instant<kUnitsPerSecond> instant(count);
  CalendarFields fields;
  if (const ResultText refusal = AdmitSeconds(instant.seconds, fields)) return refusal;
  const StampBlock block(arena);
  if (block.missing()) return kMemoryError;
  char16_t* const time_end = WriteTime(block.units(), fields);
  BoundedPrint<kFraction>(time_end, kFractionLimit, instant.remainder);
  return block.Finish();
}

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatMSecondDataTime(std::int64_t milliseconds,
                                                QXFMT_DATE_FORMAT layout) {
  return qxfmt::FormatDatedStamp<1'000, u".%03d">(blocks_, milliseconds, layout);
}

ResultText CQXDataFormat::FormatHiResDateTime(std::int64_t microseconds, QXFMT_DATE_FORMAT layout) {
  return qxfmt::FormatDatedStamp<1'000'000, u".%06d">(blocks_, microseconds, layout);
}

ResultText CQXDataFormat::FormatMaxHiResDateTime(std::int64_t nanoseconds,
                                                 QXFMT_DATE_FORMAT layout) {
  return qxfmt::FormatDatedStamp<1'000'000'000, u".%09d">(blocks_, nanoseconds, layout);
}

ResultText CQXDataFormat::FormatMSecondTime(std::int64_t milliseconds) {
  return qxfmt::FormatStamp<1'000, u".%03d">(blocks_, milliseconds);
}

ResultText CQXDataFormat::FormatHiResTime(std::int64_t microseconds) {
  return qxfmt::FormatStamp<1'000'000, u".%06d">(blocks_, microseconds);
}

ResultText CQXDataFormat::FormatMaxHiResTime(std::int64_t nanoseconds) {
  return qxfmt::FormatStamp<1'000'000'000, u".%09d">(blocks_, nanoseconds);
}

ResultText CQXDataFormat::FormatAllDateTime(std::int64_t nanoseconds, QXFMT_TIME_ACCURACY accuracy,
                                            QXFMT_DATE_FORMAT layout) {
  switch (accuracy) {
    case QXFMT_TIME_SECOND:
      return FormatDateTime(nanoseconds / 1'000'000'000, layout);
    case QXFMT_TIME_MSECOND:
      return FormatMSecondDataTime(nanoseconds / 1'000'000, layout);
    case QXFMT_TIME_USECOND:
      return FormatHiResDateTime(nanoseconds / 1'000, layout);
    case QXFMT_TIME_NSECOND:
      return FormatMaxHiResDateTime(nanoseconds, layout);
  }
  return qxfmt::kEmptyText;
}

ResultText CQXDataFormat::FormatAllTime(std::int64_t nanoseconds, QXFMT_TIME_ACCURACY accuracy) {
  switch (accuracy) {
    case QXFMT_TIME_SECOND:
      return FormatTime(nanoseconds / 1'000'000'000);
    case QXFMT_TIME_MSECOND:
      return FormatMSecondTime(nanoseconds / 1'000'000);
    case QXFMT_TIME_USECOND:
      return FormatHiResTime(nanoseconds / 1'000);
    case QXFMT_TIME_NSECOND:
      return FormatMaxHiResTime(nanoseconds);
  }
  return qxfmt::kEmptyText;
}
