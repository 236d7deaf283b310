#pragma once

/// @file
/// The clocks and durations of the standard library as the counts that a formatter takes, and as
/// text.
///
/// Rounding: what is finer than the unit asked for is cut off, toward zero, as the operations with
/// an accuracy cut it off. Nothing is ever rounded up.
///
/// Range: a count beyond 64 bits becomes the largest or the smallest that there is. That of a NaN
/// is 0.
///
/// Types: time points of `std::chrono::system_clock` and durations of any period, with counts that
/// are integers of at most 64 bits or floating-point numbers. Others do not compile.
///
/// No operation here has a state of its own; threads as with `CQXDataFormat`.

#include <chrono>
#include <cstdint>
#include <limits>
#include <ratio>
#include <type_traits>

#include <qxfmt/data_format.h>
#include <qxfmt/formats.h>
#include <qxfmt/integer_types.h>
#include <qxfmt/text.h>

namespace qxfmt {

/// How the conversions work. Not for direct use.
namespace internal {

/// The count beyond which there is none.
constexpr std::int64_t FarthestCount(bool negative) noexcept {
  using Limits = std::numeric_limits<std::int64_t>;
  return negative ? Limits::min() : Limits::max();
}

/// A whole count times `times / parts`.
template <typename Count>
constexpr std::int64_t ScaledInteger(Count count, std::uint64_t times,
                                     std::uint64_t parts) noexcept {
  const bool negative = IsNegative(count);
  const auto bits = static_cast<std::uint64_t>(count);
  const std::uint64_t magnitude = negative ? 0 - bits : bits;
  const std::uint64_t whole = magnitude / parts;
  const std::uint64_t rest = magnitude % parts * times / parts;
  constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
  if (rest > kMost || whole > (kMost - rest) / times) return FarthestCount(negative);
  const auto scaled = static_cast<std::int64_t>(whole * times + rest);
  return negative ? -scaled : scaled;
}

/// A count with a fraction.
template <typename Count>
constexpr std::int64_t ScaledFloat(Count count, Count times, Count parts) noexcept {
  constexpr auto kEnd = static_cast<Count>(0x1p63);
  const Count scaled = count * times / parts;
  if (scaled >= kEnd || scaled < -kEnd) return FarthestCount(scaled < 0);
  return scaled >= -kEnd ? static_cast<std::int64_t>(scaled) : 0;  // 0 for a NaN
}

/// The count of a duration in units of a `std::ratio` of seconds.
template <typename Unit, typename Count, typename Period>
constexpr std::int64_t CountOf(std::chrono::duration<Count, Period> span) noexcept {
  using Factor = std::ratio_divide<Period, Unit>;
  static_assert(std::is_floating_point_v<Count> || kIsInteger<Count>,
                "the count of a duration is an integer of at most 64 bits or a float");
  static_assert(Factor::num <= std::numeric_limits<std::int64_t>::max() / Factor::den,
                "the period of this duration is too odd for the unit asked for");
  if constexpr (std::is_floating_point_v<Count>) {
    return ScaledFloat(span.count(), static_cast<Count>(Factor::num),
                       static_cast<Count>(Factor::den));
  } else {
    return ScaledInteger(span.count(), Factor::num, Factor::den);
  }
}

/// The same of a time point, since 1970-01-01 00:00:00 UTC.
template <typename Unit, typename Duration>
constexpr std::int64_t CountOf(
    std::chrono::time_point<std::chrono::system_clock, Duration> time) noexcept {
  return CountOf<Unit>(time.time_since_epoch());
}

}  // namespace internal

/// @name Counts
/// For the operations whose name or accuracy says the unit:
/// `format.FormatMSecondDataTime(qxfmt::Milliseconds(now), QXFMT_DATE_YMD)`.
/// @param time a duration, or a time point of `std::chrono::system_clock`, which counts from
///   1970-01-01 00:00:00 UTC.
/// @{

/// Whole seconds. `qxfmt::Seconds(std::chrono::milliseconds(-1999))` gives -1.
template <typename Time>
[[nodiscard]] constexpr std::int64_t Seconds(Time time) noexcept {
  return internal::CountOf<std::ratio<1>>(time);
}
/// Milliseconds. `qxfmt::Milliseconds(std::chrono::minutes(2))` gives 120000.
template <typename Time>
[[nodiscard]] constexpr std::int64_t Milliseconds(Time time) noexcept {
  return internal::CountOf<std::milli>(time);
}
/// Microseconds. `qxfmt::Microseconds(std::chrono::nanoseconds(1999))` gives 1.
template <typename Time>
[[nodiscard]] constexpr std::int64_t Microseconds(Time time) noexcept {
  return internal::CountOf<std::micro>(time);
}
/// Nanoseconds. `qxfmt::Nanoseconds(std::chrono::hours::max())` gives 9223372036854775807, which is
/// some 292 years.
template <typename Time>
[[nodiscard]] constexpr std::int64_t Nanoseconds(Time time) noexcept {
  return internal::CountOf<std::nano>(time);
}
/// @}

/// @name Texts
/// As the operations of `CQXDataFormat` for the unit of the accuracy: their texts, blocks, failures
/// and life of the result. A time between 2262 and the limit of timestamps has a text in every
/// accuracy but nanoseconds.
/// In the examples `time` is `std::chrono::system_clock::from_time_t(1700000000)`, and the local
/// zone is eight hours ahead of UTC.
/// @param format the formatter that holds the result.
/// @param time a time point of `std::chrono::system_clock`. Exactly 1970-01-01 00:00:00 UTC, and
///   what is cut off to it, reads as the empty text.
/// @param span a duration.
/// @param accuracy the finest unit shown; a value outside its list gives the empty text.
/// @param layout as for the dates of `CQXDataFormat`.
/// @param kind the kind of text, as for the durations of `CQXDataFormat`.
/// @{

/// As `FormatDateTime`, `FormatMSecondDataTime`, `FormatHiResDateTime` or `FormatMaxHiResDateTime`.
/// `qxfmt::FormatDateTime(format, now, QXFMT_TIME_MSECOND)` gives "2023/11/15 06:13:20.123".
template <typename Duration>
[[nodiscard]] ResultText FormatDateTime(
    CQXDataFormat& format, std::chrono::time_point<std::chrono::system_clock, Duration> time,
    QXFMT_TIME_ACCURACY accuracy, QXFMT_DATE_FORMAT layout = QXFMT_DATE_DEFAULT) noexcept {
  if (accuracy == QXFMT_TIME_SECOND) return format.FormatDateTime(Seconds(time), layout);
  if (accuracy == QXFMT_TIME_MSECOND) {
    return format.FormatMSecondDataTime(Milliseconds(time), layout);
  }
  if (accuracy == QXFMT_TIME_USECOND) {
    return format.FormatHiResDateTime(Microseconds(time), layout);
  }
  return format.FormatAllDateTime(Nanoseconds(time), accuracy, layout);
}

/// As `FormatTime`, `FormatMSecondTime`, `FormatHiResTime` or `FormatMaxHiResTime`.
/// `qxfmt::FormatTime(format, now, QXFMT_TIME_SECOND)` gives "06:13:20".
template <typename Duration>
[[nodiscard]] ResultText FormatTime(
    CQXDataFormat& format, std::chrono::time_point<std::chrono::system_clock, Duration> time,
    QXFMT_TIME_ACCURACY accuracy) noexcept {
  if (accuracy == QXFMT_TIME_SECOND) return format.FormatTime(Seconds(time));
  if (accuracy == QXFMT_TIME_MSECOND) return format.FormatMSecondTime(Milliseconds(time));
  if (accuracy == QXFMT_TIME_USECOND) return format.FormatHiResTime(Microseconds(time));
  return format.FormatAllTime(Nanoseconds(time), accuracy);
}

/// As `FormatDurationSecond`, `FormatDurationMSecond`, `FormatDurationUSecond` or
/// `FormatDurationNSecond`. Whole seconds have no sign: with that accuracy a negative duration
/// reads as 0, and one of more than 32 bits as the longest, 136 years.
/// `qxfmt::FormatDuration(format, std::chrono::seconds(61), QXFMT_TIME_SECOND,
/// QXFMT_DURATION_CLOCK)` gives "00:01:01".
/// @throws StatusException in the worded formats only, when memory for a string cannot be had.
template <typename Count, typename Period>
[[nodiscard]] ResultText FormatDuration(CQXDataFormat& format,
                                        std::chrono::duration<Count, Period> span,
                                        QXFMT_TIME_ACCURACY accuracy, QXFMT_DURATION_FORMAT kind) {
  if (accuracy == QXFMT_TIME_SECOND) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
    const std::int64_t seconds = Seconds(span);
    const std::int64_t shown = seconds < 0 ? 0 : seconds > kMost ? kMost : seconds;
    return format.FormatDurationSecond(static_cast<std::uint32_t>(shown), kind);
  }
  if (accuracy == QXFMT_TIME_MSECOND) return format.FormatDurationMSecond(Milliseconds(span), kind);
  if (accuracy == QXFMT_TIME_USECOND) return format.FormatDurationUSecond(Microseconds(span), kind);
  return format.FormatDurationAllSecond(Nanoseconds(span), accuracy, kind);
}
/// @}

}  // namespace qxfmt
