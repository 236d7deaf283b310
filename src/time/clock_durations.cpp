// Spans of time: the clock layout, plain seconds, and the frame of the worded ones.

#include <cstdint>

#include <qxfmt/data_format.h>
#include <qxfmt/growable_text.h>

#include "frame/bounded_print.h"
#include "frame/result_block.h"
#include "time/worded_durations.h"

namespace qxfmt {

namespace {

constexpr ResultText kRangeOutOfRange = u"[TIME_OUT_RANGE]";

using DurationBlock = ResultBlock<128>;

// Also from index 1, behind a minus: the block has one unit more than the limit.
constexpr std::int32_t kLimit = DurationBlock::kPrintLimit;

// What the twins have of their own.
struct MillisecondTwin {
  static constexpr std::uint64_t kPerSecond = 1'000;
  static constexpr QXFMT_TIME_ACCURACY kAccuracy = QXFMT_TIME_MSECOND;
  static constexpr ResultText kClockZero = u"00:00:00.000";
  static constexpr ResultText kPlainZero = u"0.000";
  static constexpr Pattern kClock = u"%02u:%02u:%02u.%03u";
  static constexpr Pattern kPlain = u"%d.%03u";
};

struct MicrosecondTwin {
  static constexpr std::uint64_t kPerSecond = 1'000'000;
  static constexpr QXFMT_TIME_ACCURACY kAccuracy = QXFMT_TIME_USECOND;
  static constexpr ResultText kClockZero = u"00:00:00.000000";
  static constexpr ResultText kPlainZero = u"0.000000";
  static constexpr Pattern kClock = u"%02u:%02u:%02u.%06u";
  static constexpr Pattern kPlain = u"%d.%06u";
};

struct NanosecondTwin {
  static constexpr std::uint64_t kPerSecond = 1'000'000'000;
  static constexpr QXFMT_TIME_ACCURACY kAccuracy = QXFMT_TIME_NSECOND;
  static constexpr ResultText kClockZero = u"00:00:00.000000000";
  static constexpr ResultText kPlainZero = u"0.000000000";
  static constexpr Pattern kClock = u"%02u:%02u:%02u.%09u";
  static constexpr Pattern kPlain = u"%d.%09u";
};

// Hours do not wrap: the largest is 1193046.
struct Clock {
  explicit Clock(std::uint32_t whole_seconds)
      : hours(whole_seconds / 3600),
        minutes(whole_seconds / 60 % 60),
        seconds(whole_seconds % 60) {}

  std::uint32_t hours;
  std::uint32_t minutes;
  std::uint32_t seconds;
};

// Stores the minus of a negative count. Returns where the text goes on.
char16_t* StoreSign(char16_t* out, std::int64_t count) {
  if (count >= 0) return out;
  *out = u'-';
  return out + 1;
}

std::uint64_t MagnitudeOf(std::int64_t count) {
  const auto bits = static_cast<std::uint64_t>(count);
  return count < 0 ? 0 - bits : bits;
}

// The words of a duration belong into a text of their own, and a twin fails when there is no memory
// for one. It never has to grow, and the words go straight to the place where they show.
void PrintWords(char16_t* out, QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT format,
                std::uint64_t nanoseconds) {
  const GrowableText text;
  out[WriteDurationWords(out, accuracy, format, nanoseconds).size] = u'\0';
}

bool IsWorded(QXFMT_DURATION_FORMAT format) {
  return format == QXFMT_DURATION_WORDS_CN || format == QXFMT_DURATION_WORDS_EN;
}

template <typename Twin>
ResultText FormatTwin(CQXBlockBuffer& arena, std::int64_t count, QXFMT_DURATION_FORMAT format) {
  const DurationBlock block(arena);
  if (block.missing()) return kMemoryError;
  const bool is_clock = format == QXFMT_DURATION_CLOCK;
  const bool is_worded = IsWorded(format);
  if (count == 0 && !is_worded) return is_clock ? Twin::kClockZero : Twin::kPlainZero;

  char16_t* const out = StoreSign(block.units(), count);
  const std::uint64_t magnitude = MagnitudeOf(count);
  if (is_worded) {
    PrintWords(out, Twin::kAccuracy, format, magnitude * (1'000'000'000 / Twin::kPerSecond));
    return block.Finish();
  }
  const auto whole_seconds = static_cast<std::uint32_t>(magnitude / Twin::kPerSecond);
  const auto fraction = static_cast<std::uint32_t>(magnitude % Twin::kPerSecond);
  if (is_clock) {
    const Clock clock(whole_seconds);
    BoundedPrint<Twin::kClock>(out, kLimit, clock.hours, clock.minutes, clock.seconds, fraction);
  } else {
    BoundedPrint<Twin::kPlain>(out, kLimit, static_cast<std::int32_t>(whole_seconds), fraction);
  }
  return block.Finish();
}

}  // namespace

}  // namespace qxfmt

using qxfmt::BoundedPrint;
using qxfmt::Clock;

ResultText CQXDataFormat::FormatDurationSecond(std::uint32_t seconds,
                                               QXFMT_DURATION_FORMAT format) {
  const qxfmt::DurationBlock block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  if (format == QXFMT_DURATION_CLOCK) {
    if (seconds == 0) return u"00:00:00";
    const Clock clock(seconds);
    BoundedPrint<u"%02u:%02u:%02u">(block.units(), block.kPrintLimit, clock.hours, clock.minutes,
                                    clock.seconds);
  } else if (qxfmt::IsWorded(format)) {
    qxfmt::PrintWords(block.units(), QXFMT_TIME_SECOND, format,
                      std::uint64_t{seconds} * 1'000'000'000);
  } else {
    BoundedPrint<u"%02d">(block.units(), block.kPrintLimit, static_cast<std::int32_t>(seconds));
  }
  return block.Finish();
}

ResultText CQXDataFormat::FormatDurationMSecond(std::int64_t milliseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatTwin<qxfmt::MillisecondTwin>(blocks_, milliseconds, format);
}

ResultText CQXDataFormat::FormatDurationUSecond(std::int64_t microseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatTwin<qxfmt::MicrosecondTwin>(blocks_, microseconds, format);
}

ResultText CQXDataFormat::FormatDurationNSecond(std::int64_t nanoseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatTwin<qxfmt::NanosecondTwin>(blocks_, nanoseconds, format);
}

ResultText CQXDataFormat::FormatDurationAllSecond(std::int64_t nanoseconds,
                                                  QXFMT_TIME_ACCURACY accuracy,
                                                  QXFMT_DURATION_FORMAT format) {
  switch (accuracy) {
    case QXFMT_TIME_SECOND:
      return FormatDurationSecond(static_cast<std::uint32_t>(nanoseconds / 1'000'000'000), format);
    case QXFMT_TIME_MSECOND:
      return FormatDurationMSecond(nanoseconds / 1'000'000, format);
    case QXFMT_TIME_USECOND:
      return FormatDurationUSecond(nanoseconds / 1'000, format);
    case QXFMT_TIME_NSECOND:
      return FormatDurationNSecond(nanoseconds, format);
  }
  return qxfmt::kEmptyText;
}

ResultText CQXDataFormat::FormatHiResTimeRange(std::int64_t milliseconds) {
  // The limit of timestamps by its number, here of milliseconds. Unsigned, so that whatever is
  // negative lies above it.
  const auto range = static_cast<std::uint64_t>(milliseconds);
  if (range > std::uint64_t{QXFMT_TIME_LIMIT}) return qxfmt::kRangeOutOfRange;
  const qxfmt::DurationBlock block(blocks_);
  if (block.missing()) return qxfmt::kMemoryError;
  const Clock clock(static_cast<std::uint32_t>(range / 1000));
  const auto rest = static_cast<std::uint32_t>(range % 1000);
  BoundedPrint<u"%02u:%02u:%02u.%03u">(block.units(), block.kPrintLimit, clock.hours, clock.minutes,
                                       clock.seconds, rest);
  return block.Finish();
}
