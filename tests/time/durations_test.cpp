#include <cstdint>
#include <memory_resource>
#include <string>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

constexpr auto kClock = QXFMT_DURATION_CLOCK;
constexpr auto kPlain = QXFMT_DURATION_PLAIN;
constexpr auto kEnglish = QXFMT_DURATION_WORDS_EN;
constexpr auto kChinese = QXFMT_DURATION_WORDS_CN;

// The twin of 10^places units a second.
ResultText FormatSpan(CQXDataFormat& format, int places, std::int64_t count,
                      QXFMT_DURATION_FORMAT kind) {
  if (places == 0) return format.FormatDurationSecond(static_cast<std::uint32_t>(count), kind);
  if (places == 3) return format.FormatDurationMSecond(count, kind);
  if (places == 6) return format.FormatDurationUSecond(count, kind);
  return format.FormatDurationNSecond(count, kind);
}

// The four twins on one count of their own units.
std::string Twins(std::int64_t count, QXFMT_DURATION_FORMAT kind) {
  std::string texts;
  for (const int places : {0, 3, 6, 9}) {
    ArenaScript arena;
    CQXDataFormat format;
    texts += Utf8(FormatSpan(format, places, count, kind)) + " ";
    EXPECT_EQ(arena.TakeSizes(), Sizes{128});
    arena.RefuseAll();
    EXPECT_EQ(Utf8(FormatSpan(format, places, count, kind)), "[MEM_ERR]");
  }
  return texts;
}

TEST(Durations, SameCountInAllTwins) {
  EXPECT_EQ(Twins(0, kClock), "00:00:00 00:00:00.000 00:00:00.000000 00:00:00.000000000 ");
  EXPECT_EQ(Twins(0, kPlain), "00 0.000 0.000000 0.000000000 ");
  EXPECT_EQ(Twins(0, QXFMT_DURATION_FORMAT(-1)), "00 0.000 0.000000 0.000000000 ");
  EXPECT_EQ(Twins(0, kEnglish), "0s 0ms 0us 0ns ");
  EXPECT_EQ(Twins(0, kChinese), "0秒 0毫秒 0微秒 0纳秒 ");
  EXPECT_EQ(Twins(4294967295, kEnglish),
            "49710d6h28m15s 49d17h2m47s295ms 1h11m34s967ms295us 4s294ms967us295ns ");
  EXPECT_EQ(Twins(360000, kChinese), "4天4时 6分 360毫秒 360微秒 ");
  EXPECT_EQ(Twins(3599, kClock), "00:59:59 00:00:03.599 00:00:00.003599 00:00:00.000003599 ");
  EXPECT_EQ(Twins(3600000, kClock), "1000:00:00 01:00:00.000 00:00:03.600000 00:00:00.003600000 ");
  EXPECT_EQ(Twins(2147483647, kPlain), "2147483647 2147483.647 2147.483647 2.147483647 ");
  EXPECT_EQ(Twins(-360000000, kClock),
            "1093046:28:16 -100:00:00.000 -00:06:00.000000 -00:00:00.360000000 ");
  // Out of range: seconds modulo 2^32, words modulo 2^64 nanoseconds, magnitude 2^63.
  EXPECT_EQ(Twins(-1, kPlain), "-1 -0.001 -0.000001 -0.000000001 ");
  EXPECT_EQ(Twins(INT64_MIN, kClock),
            "00:00:00 -773094:06:47.808 -577014:32:22.775808 -175954:50:44.854775808 ");
  EXPECT_EQ(Twins(INT64_MIN, kEnglish), "0s -0ms -0us -106751d23h47m16s854ms775us808ns ");
}

TEST(Durations, Words) {
  CQXDataFormat format;
  const auto words = [&format](int places, std::int64_t count, QXFMT_DURATION_FORMAT kind) {
    return Utf8(FormatSpan(format, places, count, kind));
  };
  EXPECT_EQ(words(3, -90061001, kEnglish), "-1d1h1m1s1ms");
  EXPECT_EQ(words(3, 9223372036854, kEnglish), "106751d23h47m16s854ms");
  EXPECT_EQ(words(6, 9223372036854775, kEnglish), "106751d23h47m16s854ms775us");
  EXPECT_EQ(words(9, -INT64_MAX, kEnglish), "-106751d23h47m16s854ms775us807ns");
  EXPECT_EQ(words(9, 90061001001001, kChinese), "1天1时1分1秒1毫秒1微秒1纳秒");
  EXPECT_EQ(words(9, 86400000000001, kEnglish), "1d1ns");
  EXPECT_EQ(words(9, 110010010100, kEnglish), "1m50s10ms10us100ns");
}

TEST(Durations, Accuracy) {
  ArenaScript arena;
  CQXDataFormat format;
  const auto texts = [&format](std::int64_t nanoseconds) {
    std::string all;
    for (const std::int32_t accuracy : {0, 1, 2, 3, 4, -1}) {
      all +=
          Utf8(format.FormatDurationAllSecond(nanoseconds, QXFMT_TIME_ACCURACY(accuracy), kClock)) +
          " ";
    }
    return all;
  };
  EXPECT_EQ(texts(1500000000), "00:00:01 00:00:01.500 00:00:01.500000 00:00:01.500000000   ");
  EXPECT_EQ(arena.TakeSizes(), Sizes(4, 128));
  EXPECT_EQ(texts(-999999), "00:00:00 00:00:00.000 -00:00:00.000999 -00:00:00.000999999   ");
  EXPECT_EQ(texts(-1000001000).substr(0, 27), "1193046:28:15 -00:00:01.000");
}

TEST(Durations, Range) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(0)), "00:00:00.000");
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(3661001)), "01:01:01.001");
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(32503651200)), "9028:47:31.200");
  EXPECT_EQ(arena.TakeSizes(), Sizes(3, 128));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(1)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(32503651201)), "[TIME_OUT_RANGE]");
  EXPECT_EQ(Utf8(format.FormatHiResTimeRange(-1)), "[TIME_OUT_RANGE]");
  EXPECT_EQ(arena.TakeSizes(), Sizes{128});
}

class DirectFormat : public CQXDataFormat {
 public:
  using CQXDataFormat::FormatDataAndUnit;
  using CQXDataFormat::FormatDuration;
  using CQXDataFormat::FormatPositiveDataAndUnit;
};

TEST(Durations, DirectCalls) {
  DirectFormat format;
  GrowableText text;
  const auto words = [&](std::int64_t nanoseconds, std::int32_t kind) {
    std::string all;
    for (const std::int32_t accuracy : {0, 1, 2, 3, 4, -1}) {
      format.FormatDuration(QXFMT_TIME_ACCURACY(accuracy), QXFMT_DURATION_FORMAT(kind), nanoseconds,
                            text);  // in place of what stood there
      all += Utf8(text) + " ";
    }
    return all;
  };
  EXPECT_EQ(words(0, 2), "0s 0ms 0us 0ns   ");
  EXPECT_EQ(words(999999, 3), "0s 0ms 999us 999us999ns 999us999ns 999us999ns ");
  EXPECT_EQ(words(61000000999, 1),
            "1分1秒 1分1秒 1分1秒 1分1秒999纳秒 1分1秒999纳秒 1分1秒999纳秒 ");
  EXPECT_EQ(words(86400999000000, 0), "1d 1d999ms 1d999ms 1d999ms 1d999ms 1d999ms ");
  EXPECT_EQ(words(-1000001, 2), "0s -1ms -1ms -1ms1ns -1ms1ns -1ms1ns ");
  GrowableText unit;
  unit.assign(u"ms");
  text.assign(u"x");
  for (const std::int32_t value : {5, 0, -5}) format.FormatPositiveDataAndUnit(value, unit, text);
  EXPECT_EQ(Utf8(text), "x5ms");
  for (const std::int32_t value : {0, INT32_MIN}) format.FormatDataAndUnit(value, unit, text);
  format.FormatDataAndUnit(1, text, text);
  EXPECT_EQ(Utf8(text), "x5ms0ms-2147483648ms1x5ms0ms-2147483648ms");
}

TEST(Durations, RefusedStringMemory) {
  ArenaScript arena;
  CQXDataFormat format;
  std::pmr::memory_resource* const usual =
      std::pmr::set_default_resource(std::pmr::null_memory_resource());
  for (const int places : {0, 3, 6, 9}) {
    for (const std::int64_t count : {0, 1}) {
      for (const auto kind : {kEnglish, kChinese}) {
        try {
          FormatSpan(format, places, count, kind);
          ADD_FAILURE() << "no exception";
        } catch (const StatusException& failure) {
          EXPECT_EQ(failure.status(), 0x8007000EU);
        }
        EXPECT_EQ(arena.TakeSizes(), Sizes{128});
      }
    }
  }
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, kClock)), "00:00:00.001");
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, kPlain)), "0.001");
  std::pmr::set_default_resource(usual);
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, kEnglish)), "1ms");
}

}  // namespace
}  // namespace qxfmt::test
