#include <qxfmt/chrono.h>

#include "support/platform.h"
#include "support/test.h"

namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

using qxfmt::FormatDateTime;
using qxfmt::FormatDuration;
using qxfmt::FormatTime;

using Ticks = duration<std::int64_t, std::ratio<1, 90000>>;  // of a media clock
using UnsignedSeconds = duration<std::uint64_t>;
using Days = duration<std::int32_t, std::ratio<86400>>;

template <typename Duration>
constexpr auto At(Duration since_1970) {
  return time_point<system_clock, Duration>(since_1970);
}

}  // namespace

TEST(Chrono, CountsAreCutOffTowardZero) {
  static_assert(qxfmt::Seconds(1999ms) == 1 && qxfmt::Seconds(-1999ms) == -1);
  static_assert(qxfmt::Seconds(At(-1ms)) == 0 && qxfmt::Milliseconds(At(2min)) == 120'000);
  static_assert(qxfmt::Microseconds(1.9999995s) == 1'999'999);
  static_assert(qxfmt::Nanoseconds(Ticks(-1)) == -11111);
  static_assert(qxfmt::Nanoseconds(Ticks(90000LL * 9'000'000'000)) == 9'000'000'000'000'000'000);
  static_assert(qxfmt::Milliseconds(Days(INT32_MAX)) == 86'400'000LL * INT32_MAX);
  static_assert(qxfmt::Seconds(duration<float, std::milli>(-2500)) == -2);
}

TEST(Chrono, CountsEndAt64Bits) {
  static_assert(qxfmt::Seconds(seconds::min()) == INT64_MIN);
  static_assert(qxfmt::Nanoseconds(nanoseconds::max()) == INT64_MAX);
  static_assert(qxfmt::Nanoseconds(9223372036s) == 9'223'372'036'000'000'000);
  static_assert(qxfmt::Nanoseconds(9223372037s) == INT64_MAX);
  static_assert(qxfmt::Nanoseconds(-9223372037s) == INT64_MIN);
  static_assert(qxfmt::Milliseconds(UnsignedSeconds::max()) == INT64_MAX);
  static_assert(qxfmt::Seconds(UnsignedSeconds(1ULL << 63)) == INT64_MAX);
  static_assert(qxfmt::Nanoseconds(1e300s) == INT64_MAX &&
                qxfmt::Nanoseconds(-1e300s) == INT64_MIN);
  EXPECT_EQ(qxfmt::Seconds(duration<double>(std::nan(""))), 0);
  EXPECT_EQ(qxfmt::Seconds(duration<double>(-HUGE_VAL)), INT64_MIN);
}

TEST(Chrono, Texts) {
  UseZone("AAA-8");
  const auto time = At(1700000000s + 123456789ns);
  const auto in_2500 = At(seconds(16725225600) + 5ms);
  CQXDataFormat format;
  EXPECT_EQ(Utf8(FormatDateTime(format, time, QXFMT_TIME_SECOND)), "2023/11/15 06:13:20");
  EXPECT_EQ(Utf8(FormatDateTime(format, time, QXFMT_TIME_MSECOND, QXFMT_DATE_DMY)),
            "15/11/2023 06:13:20.123");
  EXPECT_EQ(Utf8(FormatDateTime(format, time, QXFMT_TIME_USECOND)), "2023/11/15 06:13:20.123456");
  EXPECT_EQ(Utf8(FormatDateTime(format, time, QXFMT_TIME_NSECOND)),
            "2023/11/15 06:13:20.123456789");
  EXPECT_EQ(Utf8(FormatDateTime(format, time, static_cast<QXFMT_TIME_ACCURACY>(4))), "");
  EXPECT_EQ(Utf8(FormatDateTime(format, in_2500, QXFMT_TIME_USECOND)),
            "2500/01/01 08:00:00.005000");
  EXPECT_EQ(Utf8(FormatDateTime(format, At(-1s), QXFMT_TIME_NSECOND)), "TIME_OUT_RANGE");
  EXPECT_EQ(Utf8(FormatTime(format, time, QXFMT_TIME_SECOND)), "06:13:20");
  EXPECT_EQ(Utf8(FormatTime(format, time, QXFMT_TIME_MSECOND)), "06:13:20.123");
  EXPECT_EQ(Utf8(FormatTime(format, time, QXFMT_TIME_USECOND)), "06:13:20.123456");
  EXPECT_EQ(Utf8(FormatTime(format, time, QXFMT_TIME_NSECOND)), "06:13:20.123456789");
  const auto kClock = QXFMT_DURATION_CLOCK;
  EXPECT_EQ(Utf8(FormatDuration(format, 61.5min, QXFMT_TIME_SECOND, kClock)), "01:01:30");
  EXPECT_EQ(Utf8(FormatDuration(format, -5s, QXFMT_TIME_SECOND, kClock)), "00:00:00");
  EXPECT_EQ(Utf8(FormatDuration(format, hours::max(), QXFMT_TIME_SECOND, kClock)), "1193046:28:15");
  EXPECT_EQ(Utf8(FormatDuration(format, -5s, QXFMT_TIME_MSECOND, kClock)), "-00:00:05.000");
  EXPECT_EQ(Utf8(FormatDuration(format, 1us, QXFMT_TIME_USECOND, kClock)), "00:00:00.000001");
  EXPECT_EQ(Utf8(FormatDuration(format, 1us, QXFMT_TIME_NSECOND, QXFMT_DURATION_WORDS_EN)), "1us");
}
