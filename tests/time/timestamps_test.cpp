// Dates, times of day and timestamps with a fraction, in zones of fixed offset. The rules of real
// zones are swept in zone_sweep_test.cpp.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/local_time_probe.h"
#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

constexpr const char* kEightAhead = "CST-8";

using F = CQXDataFormat&;
using Call = std::function<ResultText(F)>;

struct Row {
  Call call;
  const char* text;
  Sizes blocks;
};

void ExpectRows(const std::vector<Row>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(i);
    ArenaScript arena;
    CQXDataFormat format;
    EXPECT_EQ(Utf8(rows[i].call(format)), rows[i].text);
    EXPECT_EQ(arena.TakeSizes(), rows[i].blocks);
  }
}

constexpr auto kYmd = QXFMT_DATE_YMD;
constexpr QXFMT_DATE_FORMAT Layout(std::int32_t value) { return QXFMT_DATE_FORMAT(value); }
constexpr QXFMT_TIME_ACCURACY Accuracy(std::int32_t value) { return QXFMT_TIME_ACCURACY(value); }

const Sizes kOne{128};
const Sizes kTwo{128, 128};

TEST(Timestamps, TextsAndBlocks) {
  const ScopedZone zone(kEightAhead);
  ExpectRows({
      {[](F f) { return f.FormatDate(1700000000, kYmd); }, "2023/11/15", kOne},
      {[](F f) { return f.FormatDate(1700000000, Layout(2)); }, "2023/15/11", kOne},
      {[](F f) { return f.FormatDate(1700000000, Layout(3)); }, "11/15/2023", kOne},
      {[](F f) { return f.FormatDate(1700000000, Layout(4)); }, "Nov. 15, 2023", kOne},
      {[](F f) { return f.FormatDate(1, Layout(4)); }, "Jan. 1, 1970", kOne},
      {[](F f) { return f.FormatDate(1700000000, Layout(5)); }, "15/11/2023", kOne},
      {[](F f) { return f.FormatTime(1); }, "08:00:01", {64}},
      {[](F f) { return f.FormatDateTime(1700000000, Layout(4)); }, "Nov. 15, 2023 06:13:20", kTwo},
      {[](F f) { return f.FormatMSecondDataTime(1700000000123, kYmd); }, "2023/11/15 06:13:20.123",
       kTwo},
      {[](F f) { return f.FormatHiResDateTime(1700000000000123, kYmd); },
       "2023/11/15 06:13:20.000123", kTwo},
      {[](F f) { return f.FormatMaxHiResDateTime(1700000000000000123, Layout(4)); },
       "Nov. 15, 2023 06:13:20.000000123", kTwo},
      {[](F f) { return f.FormatMSecondTime(1700000000123); }, "06:13:20.123", kOne},
      {[](F f) { return f.FormatHiResTime(1700000000000123); }, "06:13:20.000123", kOne},
      {[](F f) { return f.FormatMaxHiResTime(1700000000000000123); }, "06:13:20.000000123", kOne},
      // Within the first second there is a time of day, but no date and no block for it.
      {[](F f) { return f.FormatMSecondDataTime(500, kYmd); }, " 08:00:00.500", kOne},
      {[](F f) { return f.FormatMSecondDataTime(-999, kYmd); }, " 08:00:00.-999", kOne},
      {[](F f) { return f.FormatMaxHiResTime(-1); }, "08:00:00.-00000001", kOne},
      // No text, no block.
      {[](F f) { return f.FormatDate(0, kYmd); }, "", {}},
      {[](F f) { return f.FormatMaxHiResDateTime(0, kYmd); }, "", {}},
      {[](F f) { return f.FormatDate(-1, kYmd); }, "TIME_OUT_RANGE", {}},
      {[](F f) { return f.FormatTime(INT64_MIN); }, "TIME_OUT_RANGE", {}},
      {[](F f) { return f.FormatDateTime(32503651201, kYmd); }, "TIME_OUT_RANGE", {}},
      {[](F f) { return f.FormatMaxHiResDateTime(-1000000000, kYmd); }, "TIME_OUT_RANGE", {}},
      // The last second is accepted in full.
      {[](F f) { return f.FormatDateTime(QXFMT_TIME_LIMIT, kYmd); }, "3000/01/01 00:00:00", kTwo},
      {[](F f) { return f.FormatMSecondDataTime(32503651200999, kYmd); }, "3000/01/01 00:00:00.999",
       kTwo},
      {[](F f) { return f.FormatHiResTime(32503651201000000); }, "TIME_OUT_RANGE", {}},
      {[](F f) { return f.FormatMaxHiResDateTime(INT64_MAX, kYmd); },
       "2262/04/12 07:47:16.854775807", kTwo},
  });
  const ScopedZone utc("UTC0");
  ExpectRows(
      {{[](F f) { return f.FormatDateTime(QXFMT_TIME_LIMIT, kYmd); }, "2999/12/31 16:00:00", kTwo},
       {[](F f) { return f.FormatDateTime(QXFMT_TIME_LIMIT + 1, kYmd); }, "TIME_OUT_RANGE", {}}});
}

TEST(Timestamps, AccuracyCutsOffAndHandsOver) {
  const ScopedZone zone(kEightAhead);
  ArenaScript arena;
  CQXDataFormat format;
  const auto times = [&format](std::int64_t nanoseconds) {
    std::string all;
    for (const std::int32_t accuracy : {0, 1, 2, 3, 4, -1}) {
      all += Utf8(format.FormatAllTime(nanoseconds, Accuracy(accuracy))) + "|";
    }
    return all;
  };
  EXPECT_EQ(times(1700000000123456789),
            "06:13:20|06:13:20.123|06:13:20.123456|06:13:20.123456789|||");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{64, 128, 128, 128}));
  EXPECT_EQ(times(999), "|||08:00:00.000000999|||");
  EXPECT_EQ(times(-1000000000), "TIME_OUT_RANGE|TIME_OUT_RANGE|TIME_OUT_RANGE|TIME_OUT_RANGE|||");
  const auto date = [&format](std::int32_t accuracy) {
    return Utf8(format.FormatAllDateTime(1000000000000000000, Accuracy(accuracy), Layout(5)));
  };
  EXPECT_EQ(date(0) + date(1).substr(19), "09/09/2001 09:46:40.000");
  EXPECT_EQ(date(2).substr(19) + date(3).substr(19), ".000000.000000000");
  EXPECT_EQ(date(4) + date(-1), "");
}

TEST(Timestamps, MonthsAndTheLayoutSetting) {
  const ScopedZone zone("UTC0");
  const char* const months[] = {"Jan. ", "Feb. ", "Mar. ", "Apr. ", "May ",  "Jun. ",
                                "Jul. ", "Aug. ", "Sep. ", "Oct. ", "Nov. ", "Dec. "};
  CQXDataFormat format;
  for (std::int64_t month = 0; month < 12; ++month) {
    const std::int64_t seconds = 1705276800 + month * 2635200;  // from 2024-01-15 on
    const std::string text = Utf8(format.FormatDateTime(seconds, Layout(4)));
    EXPECT_EQ(text.find(months[month]), 0U) << text;
    const double ole_date = 45306 + static_cast<double>(month) * 30.5;
    EXPECT_EQ(Utf8(format.FormatOleDateTime(ole_date, Layout(4))), text);
  }
  const auto texts = [&format](std::int32_t layout) {
    return Utf8(format.FormatDate(86400, Layout(layout))) +
           Utf8(format.FormatDateTime(86400, Layout(layout))) +
           Utf8(format.FormatMSecondDataTime(86400000, Layout(layout))) +
           Utf8(format.FormatOleDateTime(25570, Layout(layout)));
  };
  struct {
    std::int32_t setting, layout, acts_as;
  } const rows[] = {{4, 0, 4}, {5, 0, 5}, {0, 0, 1},   {6, 0, 1}, {INT32_MIN, 0, 1},
                    {5, 3, 3}, {4, 6, 1}, {4, 100, 1}, {4, -1, 1}};
  for (const auto& row : rows) {
    const std::string expected = texts(row.acts_as);
    QXFMT_SetDateTimeFormat(Layout(row.setting));
    EXPECT_EQ(texts(row.layout), expected) << row.setting << ' ' << row.layout;
  }
  QXFMT_SetDateTimeFormat(QXFMT_DATE_DEFAULT);
}

TEST(Timestamps, RefusedBlocksAndConversions) {
  const ScopedZone zone(kEightAhead);
  struct {
    Call call;
    const char* without_date;  // of dated ones, with the second block refused
  } const rows[] = {
      {[](F f) { return f.FormatDate(1700000000, kYmd); }, nullptr},
      {[](F f) { return f.FormatDateTime(1700000000, kYmd); }, "[MEM_ERR] 06:13:20"},
      {[](F f) { return f.FormatMSecondDataTime(1700000000123, Layout(4)); },
       "[MEM_ERR] 06:13:20.123"},
      {[](F f) { return f.FormatHiResDateTime(1700000000123456, Layout(5)); },
       "[MEM_ERR] 06:13:20.123456"},
      {[](F f) { return f.FormatMaxHiResDateTime(1700000000000000001, kYmd); },
       "[MEM_ERR] 06:13:20.000000001"},
      {[](F f) { return f.FormatMSecondTime(1700000000123); }, nullptr},
  };
  for (const auto& [call, without_date] : rows) {
    ArenaScript arena;
    CQXDataFormat format;
    zone_conversions = 0;
    const std::string text = Utf8(call(format));
    EXPECT_EQ(zone_conversions, 1);
    EXPECT_EQ(arena.TakeSizes().size(), without_date != nullptr ? 2U : 1U);
    arena.Refuse(without_date != nullptr ? 3 : 1);
    EXPECT_EQ(Utf8(call(format)), without_date != nullptr ? without_date : "[MEM_ERR]");
    arena.TakeSizes();
    arena.RefuseAll();
    EXPECT_EQ(Utf8(call(format)), "[MEM_ERR]");
    EXPECT_EQ(arena.TakeSizes().size(), 1U);
    zone_conversion_fails = true;
    EXPECT_EQ(Utf8(call(format)), "");
    zone_conversion_fails = false;
    EXPECT_EQ(arena.TakeSizes(), Sizes());
    arena.RefuseNone();
    EXPECT_EQ(Utf8(call(format)), text);
  }
}

}  // namespace
}  // namespace qxfmt::test
