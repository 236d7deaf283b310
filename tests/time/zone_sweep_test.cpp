// Every zone of the TZ database, at its transitions and their neighbours, against strftime; and
// several threads at once.

#include <fstream>
#include <future>

#include "support/local_time_probe.h"
#include "support/test.h"

using namespace qxfmt::test;

TEST(ZoneSweep, TransitionsOfAllZones) {
  constexpr std::time_t kStep = 9 * 86400;
  std::ifstream database("/usr/share/zoneinfo/tzdata.zi");
  std::size_t instants_checked = 0;
  for (std::string word; database >> word;) {
    if (word != "Z" || !(database >> word)) continue;
    UseZone(word.c_str());
    std::vector<std::time_t> instants = {3601, 2147483648, 4294967296, QXFMT_TIME_LIMIT};
    for (std::time_t low = 3601; low < QXFMT_TIME_LIMIT; low += kStep) {
      if (low == 3601 + 2900 * kStep) low = 32440000000;  // from 2041 to 2997
      const std::string rule = Strftime(low, "%z %Z");
      if (Strftime(low + kStep, "%z %Z") == rule) continue;
      std::time_t same = 0;  // seconds for which the rule stays, found bit by bit
      for (std::time_t bit = 1 << 19; bit > 0; bit /= 2) {
        if (Strftime(low + same + bit, "%z %Z") == rule) same += bit;
      }
      instants.push_back(low + same + 1);
    }
    instants_checked += instants.size();
    CQXDataFormat format;
    for (const std::time_t instant : instants) {
      for (const std::time_t time : {instant - 3600, instant - 1, instant, instant + 3599}) {
        const std::string text = time > QXFMT_TIME_LIMIT ? "TIME_OUT_RANGE" : Strftime(time);
        ASSERT_EQ(Utf8(format.FormatDateTime(time, QXFMT_DATE_YMD)), text) << word;
      }
    }
  }
  EXPECT_GT(instants_checked, 10000U) << "this test needs the TZ database: install tzdata";
}

TEST(TimeThreads, FormattersSideBySide) {
  UseZone("CST-8");
  std::vector<std::future<void>> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.push_back(std::async(std::launch::async, [thread] {
      for (int i = 0; i < 2000; ++i) {
        CQXDataFormat format;
        QXFMT_SetDateTimeFormat(i % 2 == 0 ? QXFMT_DATE_YMD : QXFMT_DATE_DEFAULT);
        EXPECT_EQ(Utf8(format.FormatDateTime(1700000000 + thread, QXFMT_DATE_DEFAULT)),
                  "2023/11/15 06:13:2" + std::to_string(thread));
      }
    }));
  }
}
