// The layouts of OLE dates are in timestamps_test.cpp.

#include "support/local_time_probe.h"
#include "support/test.h"

using namespace qxfmt::test;

// The fraction on both sides of 0; rounding and its carry; the ends of the range; failures.
TEST(OleDate, Texts) {
  ArenaScript arena;
  CQXDataFormat format;
  const auto text = [&format](double date, int layout) {
    return Utf8(format.FormatOleDateTime(date, QXFMT_DATE_FORMAT(layout)));
  };
  EXPECT_EQ(text(1.0 + 1.0 / 256, 1), "1899/12/31 00:05:38");
  EXPECT_EQ(text(1.0 + 86399.6 / 86400, 1), "1900/01/01 00:00:00");
  EXPECT_EQ(text(-1.0 - 86399.6 / 86400, 1), "1899/12/30 00:00:00");
  EXPECT_EQ(text(-657434.75, 5), "01/01/100 18:00:00");
  EXPECT_EQ(text(2958465.99999, 4), "Dec. 31, 9999 23:59:59");
  for (const double bad : {-657435.0, 2958465.999999, 2958466.0, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(text(bad, 6) + text(bad, 4), "-1/-1/-1 -1:-1:-1-1 -1, -1 -1:-1:-1");
  }
  arena.RefuseAll();
  EXPECT_EQ(text(HUGE_VAL, 1), "[MEM_ERR]");
  EXPECT_EQ(arena.TakeSizes(), Sizes(16, 128));
}

// At another time each, against the C library's own count of days.
TEST(OleDate, EveryDayOfTheRange) {
  UseZone("CST-8");  // takes part in the reference only
  for (int day = -657434; day <= 2958465; ++day) {
    CQXDataFormat format;
    const int second = (day + 657434) % 86400 * 7919 % 86400;
    const double date = day + (day < 0 ? -second : second) / 86400.0;
    ASSERT_EQ(Utf8(format.FormatOleDateTime(date, QXFMT_DATE_YMD)),
              Strftime((day - 25569) * std::time_t{86400} + second - 8 * 3600));
  }
}
