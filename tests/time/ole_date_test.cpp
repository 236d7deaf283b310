#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/local_time_probe.h"
#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

// Layouts; the fraction on both sides of 0; rounding and its carry; the ends of the range;
// failures.
TEST(OleDate, Texts) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const ScopedZone zone("CST-8");  // takes no part
  struct {
    double date;
    std::int32_t layout;
    const char* text;
  } const rows[] = {{45245.25, 1, "2023/11/15 06:00:00"},
                    {45245.25, 2, "2023/15/11 06:00:00"},
                    {45245.25, 3, "11/15/2023 06:00:00"},
                    {45245.25, 4, "Nov. 15, 2023 06:00:00"},
                    {45245.25, 5, "15/11/2023 06:00:00"},
                    {2.0, 4, "Jan. 1, 1900 00:00:00"},
                    {0.0, 1, "1899/12/30 00:00:00"},
                    {-0.75, 1, "1899/12/30 18:00:00"},
                    {-1.25, 1, "1899/12/29 06:00:00"},
                    {1.0 + 1.0 / 256, 1, "1899/12/31 00:05:38"},
                    {1.0 + 86399.4 / 86400, 1, "1899/12/31 23:59:59"},
                    {1.0 + 86399.6 / 86400, 1, "1900/01/01 00:00:00"},
                    {-1.0 - 86399.6 / 86400, 1, "1899/12/30 00:00:00"},
                    {60.0 + 0.9999999, 1, "1900/03/01 00:00:00"},
                    {-657434.0, 1, "100/01/01 00:00:00"},
                    {-657434.75, 5, "01/01/100 18:00:00"},
                    {-657435.0, 1, "-1/-1/-1 -1:-1:-1"},
                    {2958465.99999, 4, "Dec. 31, 9999 23:59:59"},
                    {2958465.999999, 1, "-1/-1/-1 -1:-1:-1"},
                    {2958466.0, 2, "-1/-1/-1 -1:-1:-1"},
                    {-kInfinity, 5, "-1/-1/-1 -1:-1:-1"},
                    {kInfinity, 6, "-1/-1/-1 -1:-1:-1"},
                    {std::nan(""), 4, "-1 -1, -1 -1:-1:-1"}};
  for (const auto& row : rows) {
    ArenaScript arena;
    CQXDataFormat format;
    EXPECT_EQ(Utf8(format.FormatOleDateTime(row.date, QXFMT_DATE_FORMAT(row.layout))), row.text);
    EXPECT_EQ(arena.TakeSizes(), Sizes{128}) << row.text;
    arena.RefuseAll();
    EXPECT_EQ(Utf8(format.FormatOleDateTime(row.date, QXFMT_DATE_YMD)), "[MEM_ERR]");
  }
}

// Counts days one by one, which knows nothing of eras.
TEST(OleDate, EveryDayOfTheRange) {
  const int month_days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  CQXDataFormat format;
  double day = -657434;
  for (int year = 100; year <= 9999; ++year) {
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    for (int month = 0; month < 12; ++month) {
      const int days = month_days[month] + (month == 1 && leap ? 1 : 0);
      for (int date = 1; date <= days; ++date, ++day) {
        char expected[32];
        std::snprintf(expected, sizeof expected, "%d/%02d/%02d 12:00:00", year, month + 1, date);
        const double noon = day < 0 ? day - 0.5 : day + 0.5;
        ASSERT_EQ(Utf8(format.FormatOleDateTime(noon, QXFMT_DATE_YMD)), expected);
      }
    }
    format.Reset();
  }
  EXPECT_EQ(day, 2958466);
}

}  // namespace
}  // namespace qxfmt::test
