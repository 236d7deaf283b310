// Dates, times of day and timestamps with a fraction, in a zone of fixed offset. The rules of real
// zones are swept in zone_sweep_test.cpp.

#include "support/local_time_probe.h"
#include "support/test.h"

using namespace qxfmt::test;
using std::placeholders::_1;
using F = CQXDataFormat;
using Layout = QXFMT_DATE_FORMAT;
using Accuracy = QXFMT_TIME_ACCURACY;

// By accuracy.
constexpr ResultText (F::*kDated[])(std::int64_t, Layout) = {
    &F::FormatDateTime, &F::FormatMSecondDataTime, &F::FormatHiResDateTime,
    &F::FormatMaxHiResDateTime};
constexpr ResultText (F::*kUndated[])(std::int64_t) = {&F::FormatTime, &F::FormatMSecondTime,
                                                       &F::FormatHiResTime, &F::FormatMaxHiResTime};

// A call's text and blocks; its one zone conversion, and a failed one; its text without blocks.
static void Expect(std::string text, Sizes blocks, std::function<ResultText(F*)> call) {
  ArenaScript arena;
  F format;
  zone_conversions = 0;
  EXPECT_EQ(Utf8(call(&format)), text);
  EXPECT_EQ(zone_conversions, blocks.empty() ? 0 : 1) << text;
  zone_conversion_fails = true;
  EXPECT_EQ(Utf8(call(&format)), blocks.empty() ? text : "");
  zone_conversion_fails = false;
  EXPECT_EQ(arena.TakeSizes(), blocks) << text;
  arena.Refuse(blocks.size() + 1);
  EXPECT_EQ(Utf8(call(&format)),
            blocks.size() == 2 ? "[MEM_ERR]" + text.substr(text.rfind(' ')) : text);
  arena.RefuseAll();
  EXPECT_EQ(Utf8(call(&format)), blocks.empty() ? text : "[MEM_ERR]");
}

// The text of the dated operation; those of the undated one and of the bare date are its parts.
void ExpectStamp(int accuracy, std::int64_t count, std::string text, Layout layout = Layout(1)) {
  const std::size_t blank = text.rfind(' ');
  const std::string date = text.substr(0, blank);
  const std::string time = text.substr(blank + 1);
  const std::size_t one = date == time ? 0 : 1;
  const Sizes blocks(date.empty() ? one : 2 * one, 128);
  Expect(text, blocks, std::bind(kDated[accuracy], _1, count, layout));
  Expect(time, Sizes(one, accuracy == 0 ? 64 : 128), std::bind(kUndated[accuracy], _1, count));
  if (accuracy == 0) Expect(date, Sizes(one, 128), std::bind(&F::FormatDate, _1, count, layout));
}

TEST(Timestamps, Limits) {
  UseZone("CST-8");
  for (const int accuracy : {0, 1, 2, 3}) {
    ExpectStamp(accuracy, 0, "");
    ExpectStamp(accuracy, -1000000000, "TIME_OUT_RANGE");
    ExpectStamp(accuracy, INT64_MIN, "TIME_OUT_RANGE");
  }
  ExpectStamp(0, QXFMT_TIME_LIMIT, "3000/01/01 00:00:00");
  ExpectStamp(0, QXFMT_TIME_LIMIT + 1, "TIME_OUT_RANGE");
  // Within the first second there is a time of day, but no date.
  ExpectStamp(1, 500, " 08:00:00.500");
  ExpectStamp(1, 32503651200999, "3000/01/01 00:00:00.999");
  ExpectStamp(2, 32503651201000000, "TIME_OUT_RANGE");
  ExpectStamp(3, INT64_MAX, "2262/04/12 07:47:16.854775807");
}

TEST(Timestamps, LayoutsAndMonths) {
  UseZone("CST-8");
  const char* const patterns[] = {"%Y/%m/%d", "%Y/%d/%m", "%m/%d/%Y", "%b. %-d, %Y", "%d/%m/%Y"};
  const char* const fractions[] = {"", ".012", ".012345", ".012345678"};
  for (const int setting : {4, 6, INT32_MIN, 0}) {
    QXFMT_SetDateTimeFormat(Layout(setting));
    for (int i = 0; i < 12 * 9; ++i) {
      const auto layout = Layout(i % 9 - 1);
      const int seconds = 1704439805 + i / 9 * 2635200;  // from 2024-01-05 on
      const int shown = layout == 0 ? setting : layout;
      std::string text = Strftime(seconds, patterns[shown > 0 && shown < 6 ? shown - 1 : 0]);
      if (text.find("May.") == 0) text.erase(3, 1);
      text += Strftime(seconds, " %H:%M:%S");
      F format;
      for (int accuracy = 0, unit = 1000000000; unit > 0; ++accuracy, unit /= 1000) {
        const std::int64_t nanoseconds = seconds * std::int64_t{1000000000} + 12345678;
        const std::string stamp = text + fractions[accuracy];
        ExpectStamp(accuracy, nanoseconds / unit, stamp, layout);
        EXPECT_EQ(Utf8(format.FormatAllDateTime(nanoseconds, Accuracy(accuracy), layout)), stamp);
        EXPECT_EQ(Utf8(format.FormatAllTime(nanoseconds, Accuracy(accuracy))),
                  stamp.substr(stamp.rfind(' ') + 1));
        EXPECT_EQ(*format.FormatAllDateTime(nanoseconds, Accuracy(accuracy + 4), layout), u'\0');
        EXPECT_EQ(*format.FormatAllTime(nanoseconds, Accuracy(accuracy - 4)), u'\0');
      }
      EXPECT_EQ(Utf8(format.FormatOleDateTime(25569 + (seconds + 28800) / 86400.0, layout)), text);
    }
  }
}
