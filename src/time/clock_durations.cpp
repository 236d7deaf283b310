// Spans of time: the clock layout, plain seconds, and the frame of the worded ones.

#include <array>
#include <cstdint>

#include <qxfmt/data_format.h>
#include <qxfmt/growable_text.h>

#include "frame/result.h"
#include "text/decimal.h"
#include "time/fraction.h"
#include "time/worded_durations.h"

namespace qxfmt {

namespace {

constexpr ResultText kRangeOutOfRange = u"[TIME_OUT_RANGE]";

// Hours, minutes and seconds. Hours have two digits or more, do not wrap and end at 1193046.
class Clock {
 public:
  static constexpr std::int32_t kMaxSize = 13;
  static constexpr std::int32_t kSlack = 1;

  explicit Clock(std::uint32_t whole_seconds) : seconds_(whole_seconds) {}

  char16_t* Write(char16_t* out) const {
    const std::uint32_t minutes = seconds_ / 60;
    const std::uint32_t hours = seconds_ / 3600;
    out = hours < 10000 ? WriteUpToFour<2>(out, hours) : WriteWhole(out, hours);
    out = WriteSeparatedPair(out, u':', minutes - hours * 60);
    return WriteSeparatedPair(out, u':', seconds_ - minutes * 60);
  }

 private:
  std::uint32_t seconds_;
};

// The static text of a count of 0: a clock or a single digit, and the decimals.
template <int kDecimals>
consteval auto MakeZeroText(std::u16string_view whole) {
  std::array<char16_t, std::size_t{8 + 1 + kDecimals + 1}> text{};
  char16_t* out = std::copy(whole.begin(), whole.end(), text.begin());
  if (kDecimals > 0) *out++ = u'.';
  std::fill_n(out, kDecimals, u'0');
  return text;
}

template <int kDecimals>
constexpr auto kClockZero = MakeZeroText<kDecimals>(u"00:00:00");
template <int kDecimals>
constexpr auto kPlainZero = MakeZeroText<kDecimals>(u"0");

template <int kDecimals>
constexpr auto kAccuracy = static_cast<QXFMT_TIME_ACCURACY>(kDecimals / 3);

// The words of a duration belong into a string, and an operation fails when there is no memory for
// one. The words themselves go straight to the block.
void RequireStringMemory() { const GrowableText text; }

bool IsWorded(QXFMT_DURATION_FORMAT format) {
  return format == QXFMT_DURATION_WORDS_CN || format == QXFMT_DURATION_WORDS_EN;
}

// A span as a count of units with that many decimals of a second.
template <int kDecimals>
ResultText FormatSpan(CQXBlockBuffer& arena, std::int64_t count, QXFMT_DURATION_FORMAT format) {
  constexpr auto kScale = static_cast<std::uint64_t>(kPerSecond<kDecimals>);
  return FillResult<128>(arena, [&](auto block) -> ResultText {
    const Minus minus(count < 0);
    const std::uint64_t magnitude = MagnitudeOf(count);
    if (IsWorded(format)) {
      const std::uint64_t nanoseconds = magnitude * (1'000'000'000 / kScale);
      RequireStringMemory();
      return block.Print(minus, DurationWords(kAccuracy<kDecimals>, format, nanoseconds));
    }
    const auto seconds = static_cast<std::uint32_t>(magnitude / kScale);
    const Fraction<kDecimals> fraction(static_cast<std::int32_t>(magnitude % kScale));
    if (format == QXFMT_DURATION_CLOCK) {
      if (count == 0) return kClockZero<kDecimals>.data();
      return block.Print(minus, Clock(seconds), fraction);
    }
    const Decimal whole(static_cast<std::int32_t>(seconds));
    if constexpr (kDecimals == 0) {  // two digits at least
      return seconds < 10 ? block.Print(u'0', whole) : block.Print(whole);
    }
    if (count == 0) return kPlainZero<kDecimals>.data();
    return block.Print(minus, whole, fraction);
  });
}

}  // namespace

}  // namespace qxfmt

ResultText CQXDataFormat::FormatDurationSecond(std::uint32_t seconds,
                                               QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatSpan<0>(blocks_, seconds, format);
}

ResultText CQXDataFormat::FormatDurationMSecond(std::int64_t milliseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatSpan<3>(blocks_, milliseconds, format);
}

ResultText CQXDataFormat::FormatDurationUSecond(std::int64_t microseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatSpan<6>(blocks_, microseconds, format);
}

ResultText CQXDataFormat::FormatDurationNSecond(std::int64_t nanoseconds,
                                                QXFMT_DURATION_FORMAT format) {
  return qxfmt::FormatSpan<9>(blocks_, nanoseconds, format);
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

ResultText CQXDataFormat::FormatHiResTimeRange(std::int64_t milliseconds) noexcept {
  // The limit of timestamps by its number, here of milliseconds. Unsigned, so that whatever is
  // negative lies above it.
  const auto range = static_cast<std::uint64_t>(milliseconds);
  if (range > std::uint64_t{QXFMT_TIME_LIMIT}) return qxfmt::kRangeOutOfRange;
  const qxfmt::Clock clock(static_cast<std::uint32_t>(range / 1000));
  const qxfmt::Fraction<3> fraction(static_cast<std::int32_t>(range % 1000));
  return qxfmt::PrintResult<128>(blocks_, clock, fraction);
}
