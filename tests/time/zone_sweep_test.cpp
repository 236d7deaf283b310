// Every zone of the TZ database, at its transitions and their neighbours, against strftime; and
// several threads at once.

#include <ctime>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/local_time_probe.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

// The third column of the database's own list.
std::vector<std::string> ZoneNames() {
  std::ifstream table("/usr/share/zoneinfo/zone.tab");
  std::vector<std::string> names;
  for (std::string line; std::getline(table, line);) {
    std::istringstream columns(line);
    std::string name;
    columns >> name >> name >> name;
    if (line[0] != '#') names.push_back(name);
  }
  return names;
}

std::tm Fields(std::time_t time) {
  std::tm fields;
  localtime_r(&time, &fields);
  return fields;
}

// The first second after each change of the offset or of daylight saving.
void AddTransitions(std::time_t from, std::time_t to, std::set<std::time_t>& instants) {
  constexpr std::time_t kStep = 9 * 86400;
  const auto rule = [](std::time_t t) {
    return std::pair(Fields(t).tm_gmtoff, Fields(t).tm_isdst);
  };
  for (std::time_t begin = from; begin < to; begin += kStep) {
    std::time_t low = begin;
    std::time_t high = std::min(begin + kStep, to);
    if (rule(low) == rule(high)) continue;
    while (high - low > 1) {
      const std::time_t middle = low + (high - low) / 2;
      (rule(middle) == rule(low) ? low : high) = middle;
    }
    instants.insert(high);
  }
}

std::string Expected(std::time_t time) {
  const std::tm fields = Fields(time);
  char text[64];
  std::strftime(text, sizeof text, "%Y/%m/%d %H:%M:%S", &fields);
  return text;
}

TEST(ZoneSweep, TransitionsOfAllZones) {
  const std::vector<std::string> zones = ZoneNames();
  ASSERT_GT(zones.size(), 300U) << "this test needs the TZ database: install tzdata";
  std::size_t transitions = 0;
  CQXDataFormat format;
  for (const std::string& name : zones) {
    const ScopedZone zone(name.c_str());
    std::set<std::time_t> instants = {1, 2147483647, 2147483648, 4294967296, QXFMT_TIME_LIMIT};
    AddTransitions(1, 2240611200, instants);                  // to 2041
    AddTransitions(32440000000, QXFMT_TIME_LIMIT, instants);  // from 2997
    transitions += instants.size() - 5;
    for (const std::time_t instant : instants) {
      for (const std::time_t time : {instant - 3600, instant - 1, instant, instant + 3599}) {
        if (time <= 0 || time > QXFMT_TIME_LIMIT) continue;
        ASSERT_EQ(Utf8(format.FormatDateTime(time, QXFMT_DATE_YMD)), Expected(time)) << name;
        ASSERT_EQ(Utf8(format.FormatMSecondDataTime(time * 1000 + 7, QXFMT_DATE_YMD)),
                  Expected(time) + ".007");
      }
    }
    format.Reset();
  }
  EXPECT_GT(transitions, 10000U);
}

TEST(TimeThreads, FormattersSideBySide) {
  const ScopedZone zone("CST-8");
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([thread] {
      CQXDataFormat format;
      for (std::int64_t i = 0; i < 2000; ++i) {
        QXFMT_SetDateTimeFormat(i % 2 == 0 ? QXFMT_DATE_DEFAULT : QXFMT_DATE_YMD);
        const std::int64_t seconds = 1700000000 + thread;
        EXPECT_EQ(Utf8(format.FormatDateTime(seconds, QXFMT_DATE_DEFAULT)),
                  "2023/11/15 06:13:2" + std::to_string(thread));
        EXPECT_EQ(Utf8(format.FormatDurationMSecond(1500, QXFMT_DURATION_WORDS_EN)), "1s500ms");
        format.Reset();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  QXFMT_SetDateTimeFormat(QXFMT_DATE_DEFAULT);
}

}  // namespace
}  // namespace qxfmt::test
