#include "support/test.h"

using Accuracy = QXFMT_TIME_ACCURACY;
using Kind = QXFMT_DURATION_FORMAT;

constexpr auto kClock = QXFMT_DURATION_CLOCK;
constexpr auto kChinese = QXFMT_DURATION_WORDS_CN;
constexpr auto kEnglish = QXFMT_DURATION_WORDS_EN;
constexpr auto kPlain = QXFMT_DURATION_PLAIN;

// A count of seconds, of milliseconds, of microseconds and of nanoseconds.
void ExpectTwins(std::int64_t count, Kind kind, const char* seconds, const char* milliseconds,
                 const char* microseconds, const char* nanoseconds) {
  const auto unsigned_count = static_cast<std::uint32_t>(count);
  ExpectRows({{CALL(FormatDurationSecond(unsigned_count, kind)), seconds, {128}},
              {CALL(FormatDurationMSecond(count, kind)), milliseconds, {128}},
              {CALL(FormatDurationUSecond(count, kind)), microseconds, {128}},
              {CALL(FormatDurationNSecond(count, kind)), nanoseconds, {128}}});
}

TEST(Durations, Twins) {
  ExpectTwins(0, kClock, "00:00:00", "00:00:00.000", "00:00:00.000000", "00:00:00.000000000");
  ExpectTwins(0, kPlain, "00", "0.000", "0.000000", "0.000000000");
  ExpectTwins(0, kEnglish, "0s", "0ms", "0us", "0ns");
  ExpectTwins(0, kChinese, "0秒", "0毫秒", "0微秒", "0纳秒");
  ExpectTwins(10, Kind(-1), "10", "0.010", "0.000010", "0.000000010");
  ExpectTwins(359999, kClock, "99:59:59", "00:05:59.999", "00:00:00.359999", "00:00:00.000359999");
  ExpectTwins(360000, kClock, "100:00:00", "00:06:00.000", "00:00:00.360000", "00:00:00.000360000");
  ExpectTwins(90061, kEnglish, "1d1h1m1s", "1m30s61ms", "90ms61us", "90us61ns");
  ExpectTwins(1, kEnglish, "1s", "1ms", "1us", "1ns");
  // Out of range: seconds modulo 2^32, words modulo 2^64 nanoseconds, a magnitude of 2^63.
  ExpectTwins(32503651201, kPlain, "-1856087167", "32503651.201", "32503.651201", "32.503651201");
  ExpectTwins(-360000000, kClock, "1093046:28:16", "-100:00:00.000", "-00:06:00.000000",
              "-00:00:00.360000000");
  ExpectTwins(INT64_MIN, kEnglish, "0s", "-0ms", "-0us", "-106751d23h47m16s854ms775us808ns");
}

TEST(Durations, AllAccuracies) {
  ExpectRows(
      {{CALL(FormatDurationAllSecond(61500000000, Accuracy(0), kEnglish)), "1m1s", {128}},
       {CALL(FormatDurationAllSecond(61500000000, Accuracy(1), kClock)), "00:01:01.500", {128}},
       {CALL(FormatDurationAllSecond(61500000000, Accuracy(2), kPlain)), "61.500000", {128}},
       {CALL(FormatDurationAllSecond(-999999, Accuracy(1), kClock)), "00:00:00.000", {128}},
       {CALL(FormatDurationAllSecond(-1, Accuracy(3), kPlain)), "-0.000000001", {128}},
       {CALL(FormatDurationAllSecond(1, Accuracy(4), kClock)), ""},
       {CALL(FormatDurationAllSecond(1, Accuracy(-1), kClock)), ""}});
}

TEST(Durations, TimeRange) {
  ExpectRows({{CALL(FormatHiResTimeRange(360000001)), "100:00:00.001", {128}},
              {CALL(FormatHiResTimeRange(32503651200)), "9028:47:31.200", {128}},
              {CALL(FormatHiResTimeRange(32503651201)), "[TIME_OUT_RANGE]"},
              {CALL(FormatHiResTimeRange(-1)), "[TIME_OUT_RANGE]"}});
}

struct Words : CQXDataFormat {
  using CQXDataFormat::FormatDataAndUnit;
  using CQXDataFormat::FormatPositiveDataAndUnit;

  GrowableText text;
  std::string Of(int accuracy, Kind kind, std::int64_t nanoseconds) {
    FormatDuration(Accuracy(accuracy), kind, nanoseconds, text.assign(u"replaced"));
    return Utf8(text);
  }
};

TEST(Durations, Words) {
  Words words;
  EXPECT_EQ(words.Of(3, kChinese, 90061001001001), "1天1时1分1秒1毫秒1微秒1纳秒");
  EXPECT_EQ(words.Of(3, kEnglish, 110010100), "110ms10us100ns");
  EXPECT_EQ(words.Of(0, kEnglish, 999999999), "0s");
  EXPECT_EQ(words.Of(2, kClock, 86400000000999), "1d");
  EXPECT_EQ(words.Of(-1, kPlain, 86400000000001), "1d1ns");
  EXPECT_EQ(words.Of(4, kEnglish, 0), "");
  EXPECT_EQ(words.Of(1, kEnglish, -1000001), "-1ms");
  EXPECT_EQ(words.Of(0, kEnglish, -1000001), "0s");  // no minus if only a 0 shows
  GrowableText text;
  text.assign(u"x");
  for (const int value : {5, 0, -5}) words.FormatPositiveDataAndUnit(value, text, text);
  EXPECT_EQ(Utf8(text), "x5x");
  for (const int value : {0, -5}) words.FormatDataAndUnit(value, text, text);
  EXPECT_EQ(Utf8(text), "x5x0x5x-5x5x0x5x");
}

TEST(Durations, WordsNeedStringMemory) {
  ArenaScript arena;
  CQXDataFormat format;
  std::pmr::set_default_resource(std::pmr::null_memory_resource());
  EXPECT_EQ(StatusOf([&] { return format.FormatDurationSecond(0, kChinese); }), 0x8007000E);
  EXPECT_EQ(StatusOf([&] { return format.FormatDurationMSecond(-1, kEnglish); }), 0x8007000E);
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, kClock)), "00:00:00.001");
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, kPlain)), "0.001");
  std::pmr::set_default_resource(nullptr);  // the usual one
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(0, kEnglish)), "0ms");
  EXPECT_EQ(arena.TakeSizes(), Sizes(5, 128));
}
