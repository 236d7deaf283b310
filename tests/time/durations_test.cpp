#include "support/test.h"

using namespace qxfmt::test;
using Kind = QXFMT_DURATION_FORMAT;
using Accuracy = QXFMT_TIME_ACCURACY;

struct DirectDurations : CQXDataFormat {
  using CQXDataFormat::FormatDataAndUnit;
  using CQXDataFormat::FormatDuration;
  using CQXDataFormat::FormatPositiveDataAndUnit;

  // The twin of an accuracy.
  std::string Twin(int accuracy, std::int64_t count, Kind kind) {
    if (accuracy == 0) return Utf8(FormatDurationSecond(static_cast<std::uint32_t>(count), kind));
    if (accuracy == 1) return Utf8(FormatDurationMSecond(count, kind));
    if (accuracy == 2) return Utf8(FormatDurationUSecond(count, kind));
    return Utf8(FormatDurationNSecond(count, kind));
  }
};

// The four twins on one count of their own units. The last row is out of range: seconds modulo
// 2^32, words modulo 2^64 nanoseconds, magnitude 2^63.
TEST(Durations, SameCountInAllTwins) {
  // A count; 0 for the clock, 1 for Chinese words, 2 for English words, others for plain; texts.
  const std::tuple<std::int64_t, int, const char*> rows[] = {
      {0, 0, "00:00:00 00:00:00.000 00:00:00.000000 00:00:00.000000000 "},
      {0, 3, "00 0.000 0.000000 0.000000000 "},
      {0, 2, "0s 0ms 0us 0ns "},
      {0, 1, "0秒 0毫秒 0微秒 0纳秒 "},
      {4294967295, 2, "49710d6h28m15s 49d17h2m47s295ms 1h11m34s967ms295us 4s294ms967us295ns "},
      {3599000, 0, "999:43:20 00:59:59.000 00:00:03.599000 00:00:00.003599000 "},
      {32503651200, 0, "677466:42:08 9028:47:31.200 09:01:43.651200 00:00:32.503651200 "},
      {32503651201, -1, "-1856087167 32503651.201 32503.651201 32.503651201 "},
      {-360000000, 0, "1093046:28:16 -100:00:00.000 -00:06:00.000000 -00:00:00.360000000 "},
      {INT64_MIN, 2, "0s -0ms -0us -106751d23h47m16s854ms775us808ns "}};
  for (const auto& [count, kind_value, expected] : rows) {
    const auto kind = Kind(kind_value);
    const bool out = count < 0 || count > 32503651200;  // of FormatHiResTimeRange
    std::string texts;
    for (int accuracy = 0, unit = 1000000000; unit > 0; ++accuracy, unit /= 1000) {
      ArenaScript arena;
      DirectDurations format;
      texts += format.Twin(accuracy, count, kind) + " ";
      EXPECT_EQ(Utf8(format.FormatDurationAllSecond(count, Accuracy(accuracy), kind)),
                format.Twin(accuracy, count / unit, kind));
      EXPECT_EQ(*format.FormatDurationAllSecond(1, Accuracy(5 * accuracy - 6), kind), u'\0');
      EXPECT_EQ(Utf8(format.FormatHiResTimeRange(count)),
                out ? "[TIME_OUT_RANGE]" : format.Twin(1, count, QXFMT_DURATION_CLOCK));
      arena.RefuseAll();
      EXPECT_EQ(format.Twin(accuracy, count, kind), "[MEM_ERR]");
      EXPECT_EQ(Utf8(format.FormatHiResTimeRange(count)), out ? "[TIME_OUT_RANGE]" : "[MEM_ERR]");
      EXPECT_EQ(arena.TakeSizes(), Sizes(out ? 4 : 7, 128));
    }
    EXPECT_EQ(texts, expected);
  }
}

TEST(Durations, DirectCalls) {
  DirectDurations format;
  GrowableText text;  // each replaces what stands there
  const auto words = [&](int accuracy, int kind, std::int64_t nanoseconds) {
    format.FormatDuration(Accuracy(accuracy), Kind(kind), nanoseconds, text);
    return Utf8(text);
  };
  EXPECT_EQ(words(3, 1, 110010100), "110毫秒10微秒100纳秒");
  EXPECT_EQ(words(0, 2, 999999999) + words(2, 0, 86400000000999), "0s1d");
  EXPECT_EQ(words(4, 2, 0) + words(-1, 3, 86400000000001), "1d1ns");
  EXPECT_EQ(words(0, 2, -1000001) + words(1, 2, -1000001), "0s-1ms");
  text.assign(u"x");
  for (const int value : {5, 0, -5}) format.FormatPositiveDataAndUnit(value, text, text);
  for (const int value : {0, INT32_MIN}) format.FormatDataAndUnit(value, text, text);
  EXPECT_EQ(Utf8(text), "x5x0x5x-2147483648x5x0x5x");
}
