// Dates, times of day and timestamps with a fraction, in a zone of fixed offset. The rules of real
// zones are swept in zone_sweep_test.cpp.

#include <map>

#include "support/platform.h"
#include "support/test.h"

using Layout = QXFMT_DATE_FORMAT;
using Accuracy = QXFMT_TIME_ACCURACY;

constexpr auto kYmd = QXFMT_DATE_YMD;
const Sizes kTwo = {128, 128};

// Also with a zone that cannot be told: what takes a block asks for it once, before, and then gives
// the empty text.
void ExpectStamps(const std::vector<Row>& rows) {
  UseZone("CST-8");
  ExpectRows(rows);
  zone_conversion_fails = true;
  for (const Row& row : rows) {
    ArenaScript arena;
    CQXDataFormat format;
    zone_conversions = 0;
    EXPECT_EQ(Utf8(row.call(format)), row.blocks.empty() ? row.text : "") << row.name;
    EXPECT_EQ(zone_conversions, row.blocks.empty() ? 0 : 1) << row.name;
    EXPECT_EQ(arena.TakeSizes(), Sizes{}) << row.name;
  }
  zone_conversion_fails = false;
}

TEST(Timestamps, FirstAndLastSecond) {
  ExpectStamps({{CALL(FormatDate(1, kYmd)), "1970/01/01", {128}},
                {CALL(FormatTime(1)), "08:00:01", {64}},
                {CALL(FormatDateTime(QXFMT_TIME_LIMIT, kYmd)), "3000/01/01 00:00:00", kTwo,
                 "[MEM_ERR] 00:00:00"},
                {CALL(FormatHiResDateTime(32503651200999999, kYmd)), "3000/01/01 00:00:00.999999",
                 kTwo, "[MEM_ERR] 00:00:00.999999"},
                {CALL(FormatMaxHiResDateTime(INT64_MAX, kYmd)), "2262/04/12 07:47:16.854775807",
                 kTwo, "[MEM_ERR] 07:47:16.854775807"},
                {CALL(FormatMSecondTime(32503651200999)), "00:00:00.999", {128}},
                // Second 0 has a time of day, but no date; the second before it counts as second 0.
                {CALL(FormatMSecondDataTime(500, kYmd)), " 08:00:00.500", {128}},
                {CALL(FormatMSecondDataTime(-50, kYmd)), " 08:00:00.-50", {128}},
                {CALL(FormatHiResTime(-5)), "08:00:00.-00005", {128}},
                {CALL(FormatMaxHiResTime(-999999999)), "08:00:00.-999999999", {128}}});
}

// What is cut off to 0 is 0.
TEST(Timestamps, ZeroAndOutOfRange) {
  for (const std::int64_t count : {std::int64_t{0}, std::int64_t{-1000000000}, INT64_MIN}) {
    const char* const text = count == 0 ? "" : "TIME_OUT_RANGE";
    ExpectStamps({{CALL(FormatDate(count, kYmd)), text}});
    for (const int accuracy : {0, 1, 2, 3}) {
      ExpectStamps({{CALL(FormatAllDateTime(count, Accuracy(accuracy), kYmd)), text},
                    {CALL(FormatAllTime(count, Accuracy(accuracy))), text}});
    }
  }
  ExpectStamps({{CALL(FormatDateTime(QXFMT_TIME_LIMIT + 1, kYmd)), "TIME_OUT_RANGE"},
                {CALL(FormatHiResTime(32503651201000000)), "TIME_OUT_RANGE"},
                {CALL(FormatAllTime(-999999999, Accuracy(0))), ""},
                {CALL(FormatAllDateTime(999999, Accuracy(1), kYmd)), ""},
                {CALL(FormatAllDateTime(1, Accuracy(4), kYmd)), ""},
                {CALL(FormatAllTime(1, Accuracy(-1))), ""}});
}

// At one instant, in a layout that stands for itself or comes from the setting.
void ExpectDates(std::int64_t seconds, Layout layout, const std::string& date) {
  const std::string time = Strftime(seconds, "%H:%M:%S");
  const std::int64_t nanoseconds = seconds * 1'000'000'000 + 12'345'678;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatDate(seconds, layout)), date);
  for (const auto& [accuracy, fraction] :
       {std::pair(0, ""), {1, ".012"}, {2, ".012345"}, {3, ".012345678"}}) {
    EXPECT_EQ(Utf8(format.FormatAllTime(nanoseconds, Accuracy(accuracy))), time + fraction);
    EXPECT_EQ(Utf8(format.FormatAllDateTime(nanoseconds, Accuracy(accuracy), layout)),
              date + " " + time + fraction);
  }
}

TEST(Timestamps, LayoutsOfAllMonths) {
  constexpr std::int64_t kMonth = 2635200;
  std::map<int, const char*> patterns = {
      {2, "%Y/%d/%m"}, {3, "%m/%d/%Y"}, {4, "%b. %-d, %Y"}, {5, "%d/%m/%Y"}};
  UseZone("CST-8");
  for (int month = 0; month < 12; ++month) {
    const std::int64_t seconds = 1704439805 + month * kMonth;  // from 2024-01-05 on
    for (int shown = -1; shown <= 7; ++shown) {
      std::string date = Strftime(seconds, patterns.contains(shown) ? patterns[shown] : "%Y/%m/%d");
      if (date.starts_with("May.")) date.erase(3, 1);
      QXFMT_SetDateTimeFormat(Layout(shown));
      ExpectDates(seconds, QXFMT_DATE_DEFAULT, date);
      QXFMT_SetDateTimeFormat(QXFMT_DATE_MONTH_NAME);
      if (shown != QXFMT_DATE_DEFAULT) ExpectDates(seconds, Layout(shown), date);
    }
  }
  QXFMT_SetDateTimeFormat(QXFMT_DATE_DEFAULT);
}
