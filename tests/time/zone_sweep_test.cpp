// What formatters remember of the zone, against strftime: every zone of the TZ database and rules
// written by hand, around their transitions.

#include <fstream>
#include <random>

#include "support/platform.h"
#include "support/test.h"

using namespace qxfmt::test;

constexpr std::time_t kDay = 86400;

// The first seconds of a changed offset or name, where the zone is looked at in these steps.
static std::vector<std::time_t> Transitions(std::time_t step) {
  std::vector<std::time_t> instants;
  std::string rule = Strftime(3601, "%z %Z");
  for (std::time_t low = 3601; low < QXFMT_TIME_LIMIT; low += step) {
    if (low == 3601 + 26100 * kDay) rule = Strftime(low = 32440000000, "%z %Z");  // 2041 to 2997
    const std::string next = Strftime(low + step, "%z %Z");
    if (next == rule) continue;
    std::time_t same = 0;  // seconds for which the rule stays, found bit by bit
    for (std::time_t bit = 1 << 19; bit > 0; bit /= 2) {
      if (Strftime(low + same + bit, "%z %Z") == rule) same += bit;
    }
    instants.push_back(low + same + 1);
    rule = next;
  }
  return instants;
}

TEST(ZoneSweep, OneFormatterOverAllTransitions) {
  // Changes and back in four days and in 37 hours, summer at the turn of the year, leap seconds.
  std::vector<std::string> zones = {"AAA0BBB,J100/0,J104/0", "AAA-3BBB,J100/0,J101/14",
                                    "AAA9BBB,M10.1.0,M3.3.0", "right/America/New_York"};
  if (!HasNamedZones()) zones = {"EST5EDT", "AAA-9BBB", "CST-8"};
  std::ifstream database("/usr/share/zoneinfo/tzdata.zi");
  for (std::string word; database >> word;) {
    if (word == "Z" && database >> word) zones.push_back(word);
  }
  std::mt19937 random;
  std::size_t transitions = 0;
  for (const std::string& zone : zones) {
    UseZone(zone.c_str());
    CQXDataFormat format;
    const auto check = [&](std::time_t time) {
      const bool admitted = time > 0 && time <= QXFMT_TIME_LIMIT;
      ASSERT_EQ(Utf8(format.FormatDateTime(time, QXFMT_DATE_YMD)),
                admitted ? Strftime(time) : "TIME_OUT_RANGE")
          << zone << ' ' << time;
    };
    std::vector<std::time_t> instants = Transitions(zone.find(',') < zone.size() ? kDay : 6 * kDay);
    transitions += instants.size();
    instants.insert(instants.end(), {3601, 78796801, 2147483648, 4294967296, QXFMT_TIME_LIMIT});
    for (std::size_t i = 0; i < instants.size(); ++i) {
      if (HasFatalFailure()) return;
      const std::time_t here = instants[i];
      const std::time_t step = i % 2 == 0 ? kDay / 2 : -kDay / 2;  // in order and backwards
      for (int k = -8; k <= 8; ++k) check(here + k * step);
      for (const int second : {-3600, -1, 0, 3599}) check(here + second);
      for (int k = 0; k < 12; ++k) {
        const std::time_t there = k % 2 == 0 ? here : instants[random() % (i + 1)];
        check(there - 2 * kDay + std::time_t(random() % (4 * 86400)));
      }
    }
  }
  EXPECT_GT(transitions, HasNamedZones() ? 10000U : 200U)
      << "this test needs the TZ database: install tzdata";
}

// What a hundred results in steps of so many seconds take, after a reset.
TEST(ZoneMemory, ConversionsOfAHundredResults) {
  UseZone("right/UTC");
  const bool counts_leap_seconds = Strftime(78796800, "%S") == "60";
  const struct {
    const char* zone;
    std::time_t time;
    std::time_t step;
    int conversions;
  } cases[] = {
      {"CST-8", 1700000000, 1, 7},
      {"right/UTC", 1700000000, 1, counts_leap_seconds ? 101 : 7},
      {HasNamedZones() ? "America/New_York" : "EST5EDT", 1699164000, 1, 103},  // day of a change
      {"AAA1", 100, 1, 101},                                                   // in 1969
      {"AAA-1", 100, 1, 7},
      {"AAA-1", QXFMT_TIME_LIMIT - 99, 1, 100},
      {"AAA-1", 1000000000, 1 << 20, 100},  // other spans in the same room
  };
  CQXDataFormat format;
  for (const auto& c : cases) {
    UseZone(c.zone);
    format.Reset();
    zone_conversions = 0;
    for (int i = 0; i < 100; ++i) static_cast<void>(format.FormatTime(c.time + i * c.step));
    EXPECT_EQ(zone_conversions, c.conversions) << c.zone;
    EXPECT_EQ(Utf8(format.FormatDateTime(c.time, QXFMT_DATE_YMD)), Strftime(c.time)) << c.zone;
  }
}
