#include <chrono>

#include "support/test.h"

void ExpectOleDate(double date, std::int32_t number, const char* text) {
  const auto layout = static_cast<QXFMT_DATE_FORMAT>(number);
  ExpectRows({{CALL(FormatOleDateTime(date, layout)), text, {128}}});
}

TEST(OleDate, Layouts) {
  ExpectOleDate(45245.25, 1, "2023/11/15 06:00:00");
  ExpectOleDate(45245.25, 2, "2023/15/11 06:00:00");
  ExpectOleDate(45245.25, 3, "11/15/2023 06:00:00");
  ExpectOleDate(45245.25, 4, "Nov. 15, 2023 06:00:00");
  ExpectOleDate(45245.25, 5, "15/11/2023 06:00:00");
  ExpectOleDate(45415.0, 4, "May 3, 2024 00:00:00");
  QXFMT_SetDateTimeFormat(QXFMT_DATE_MONTH_NAME);
  ExpectOleDate(2.0, 0, "Jan. 1, 1900 00:00:00");
  ExpectOleDate(2.0, 6, "1900/01/01 00:00:00");
  QXFMT_SetDateTimeFormat(QXFMT_DATE_DEFAULT);
  ExpectOleDate(0.0, 0, "1899/12/30 00:00:00");
}

// The fraction on both sides of 0, rounding and its carry, the ends of the range, failures.
TEST(OleDate, FractionsAndRange) {
  constexpr double kAlmostADay = 86399.6 / 86400;
  ExpectOleDate(1.0 + 1.0 / 256, 1, "1899/12/31 00:05:38");
  ExpectOleDate(1.0 + kAlmostADay, 1, "1900/01/01 00:00:00");
  ExpectOleDate(-1.0 - kAlmostADay, 1, "1899/12/30 00:00:00");
  ExpectOleDate(-657434.75, 5, "01/01/100 18:00:00");
  ExpectOleDate(2958465.99999, 4, "Dec. 31, 9999 23:59:59");
  for (const double bad : {-657435.0, 2958465.999999, 2958466.0, HUGE_VAL, std::nan("")}) {
    ExpectOleDate(bad, 6, "-1/-1/-1 -1:-1:-1");
    ExpectOleDate(bad, 4, "-1 -1, -1 -1:-1:-1");
  }
}

// At another time each, against the standard library's calendar.
TEST(OleDate, EveryDayOfTheRange) {
  constexpr int kSecondsPerDay = 86400;
  constexpr std::chrono::sys_days kDay0 = std::chrono::year(1899) / 12 / 30;
  CQXDataFormat format;
  int second = 0;
  for (int day = -657434; day <= 2958465; ++day, format.Reset()) {
    second = (second + 7919) % kSecondsPerDay;
    const double time_of_day = static_cast<double>(second) / kSecondsPerDay;
    const double date = day < 0 ? day - time_of_day : day + time_of_day;
    const std::chrono::year_month_day ymd = kDay0 + std::chrono::days(day);
    char text[32];
    std::snprintf(text, sizeof text, "%d/%02u/%02u %02d:%02d:%02d", int(ymd.year()),
                  unsigned(ymd.month()), unsigned(ymd.day()), second / 3600, second / 60 % 60,
                  second % 60);
    ASSERT_EQ(Utf8(format.FormatOleDateTime(date, QXFMT_DATE_YMD)), text) << date;
  }
}
