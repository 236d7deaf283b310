// Timestamps: points of calendar time in the local zone, in whole seconds and with a fraction.

#include <cstdint>

#include <qxfmt/data_format.h>

#include "frame/result.h"
#include "text/decimal.h"
#include "time/calendar_text.h"
#include "time/fraction.h"
#include "time/local_time.h"

namespace qxfmt {

namespace {

constexpr ResultText kTimeOutOfRange = u"TIME_OUT_RANGE";

// A count of units since 1970, split into whole seconds and the rest: the rest has the sign of a
// count within the second before 1970, which is second 0 too.
template <int kDecimals>
struct Instant {
  explicit Instant(std::int64_t count)
      : seconds(count / kPerSecond<kDecimals>),
        remainder(static_cast<std::int32_t>(count % kPerSecond<kDecimals>)) {}

  std::int64_t seconds;
  std::int32_t remainder;
};

// Converts, takes the block and prints. Apart from the checks before it, which need no frame on the
// stack.
template <std::uint32_t kBytes, typename Instant, typename Print>
[[gnu::noinline]] ResultText FormatAdmitted(CQXBlockBuffer& arena, Instant instant,
                                            Print print) noexcept {
  CalendarFields fields;
  if (!ToLocalTime(arena, instant.seconds, fields)) return kEmptyText;
  return FillResult<kBytes>(arena, [&](auto block) { return print(block, instant, fields); });
}

// The checks of every timestamp in their order, and then the block, which `print` fills.
template <int kDecimals, std::uint32_t kBytes = 128, typename Print>
ResultText FormatInstant(CQXBlockBuffer& arena, std::int64_t count, Print print) noexcept {
  if (count == 0) return kEmptyText;
  const Instant<kDecimals> instant(count);
  // Unsigned, so that whatever is negative lies above the limit.
  const auto seconds = static_cast<std::uint64_t>(instant.seconds);
  if (seconds > std::uint64_t{QXFMT_TIME_LIMIT}) return kTimeOutOfRange;
  return FormatAdmitted<kBytes>(arena, instant, print);
}

// The date part of a dated text: what FormatDate gives for these seconds, and like that in a block
// of the arena. Seconds of 0 give no text and take no block.
class DatePart {
 public:
  static constexpr std::int32_t kMaxSize = Date::kMaxSize;
  static constexpr std::int32_t kSlack = Date::kSlack;

  DatePart(CQXBlockBuffer& arena, std::int64_t seconds, const CalendarFields& fields,
           QXFMT_DATE_FORMAT layout)
      : date_(fields, ResolveLayout(layout)),
        content_(seconds == 0                 ? Content::kNone
                 : TakeInnerBlock<128>(arena) ? Content::kDate
                                              : Content::kFailure) {}

  char16_t* Write(char16_t* out) const {
    if (content_ == Content::kDate) [[likely]]
      return date_.Write(out);
    return content_ == Content::kFailure ? Literal(kMemoryError).Write(out) : out;
  }

 private:
  enum class Content : std::uint8_t { kNone, kDate, kFailure };

  Date date_;
  Content content_;
};

template <int kDecimals>
ResultText FormatDated(CQXBlockBuffer& arena, std::int64_t count,
                       QXFMT_DATE_FORMAT layout) noexcept {
  return FormatInstant<kDecimals>(
      arena, count,
      [&arena, layout](auto block, const auto& instant, const CalendarFields& fields) {
        const DatePart date(arena, instant.seconds, fields, layout);
        return block.Print(date, u' ', TimeOfDay(fields), Fraction<kDecimals>(instant.remainder));
      });
}

template <int kDecimals, std::uint32_t kBytes = 128>
ResultText FormatUndated(CQXBlockBuffer& arena, std::int64_t count) noexcept {
  return FormatInstant<kDecimals, kBytes>(
      arena, count, [](auto block, const auto& instant, const CalendarFields& fields) {
        return block.Print(TimeOfDay(fields), Fraction<kDecimals>(instant.remainder));
      });
}

}  // namespace

}  // namespace qxfmt

using qxfmt::FormatDated;
using qxfmt::FormatUndated;

ResultText CQXDataFormat::FormatDate(std::int64_t seconds, QXFMT_DATE_FORMAT layout) noexcept {
  return qxfmt::FormatInstant<0>(
      blocks_, seconds,
      [layout](auto block, const auto& /*instant*/, const qxfmt::CalendarFields& fields) {
        return block.Print(qxfmt::Date(fields, qxfmt::ResolveLayout(layout)));
      });
}

ResultText CQXDataFormat::FormatTime(std::int64_t seconds) noexcept {
  return FormatUndated<0, 64>(blocks_, seconds);
}

ResultText CQXDataFormat::FormatDateTime(std::int64_t seconds, QXFMT_DATE_FORMAT layout) noexcept {
  return FormatDated<0>(blocks_, seconds, layout);
}

ResultText CQXDataFormat::FormatMSecondDataTime(std::int64_t milliseconds,
                                                QXFMT_DATE_FORMAT layout) noexcept {
  return FormatDated<3>(blocks_, milliseconds, layout);
}

ResultText CQXDataFormat::FormatHiResDateTime(std::int64_t microseconds,
                                              QXFMT_DATE_FORMAT layout) noexcept {
  return FormatDated<6>(blocks_, microseconds, layout);
}

ResultText CQXDataFormat::FormatMaxHiResDateTime(std::int64_t nanoseconds,
                                                 QXFMT_DATE_FORMAT layout) noexcept {
  return FormatDated<9>(blocks_, nanoseconds, layout);
}

ResultText CQXDataFormat::FormatMSecondTime(std::int64_t milliseconds) noexcept {
  return FormatUndated<3>(blocks_, milliseconds);
}

ResultText CQXDataFormat::FormatHiResTime(std::int64_t microseconds) noexcept {
  return FormatUndated<6>(blocks_, microseconds);
}

ResultText CQXDataFormat::FormatMaxHiResTime(std::int64_t nanoseconds) noexcept {
  return FormatUndated<9>(blocks_, nanoseconds);
}

ResultText CQXDataFormat::FormatAllDateTime(std::int64_t nanoseconds, QXFMT_TIME_ACCURACY accuracy,
                                            QXFMT_DATE_FORMAT layout) noexcept {
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

ResultText CQXDataFormat::FormatAllTime(std::int64_t nanoseconds,
                                        QXFMT_TIME_ACCURACY accuracy) noexcept {
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
