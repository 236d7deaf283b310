// What all results have in common: their life, their blocks, their failure; and the settings.

#include <set>
#include <vector>

#include "support/test.h"

using namespace qxfmt::test;

TEST(Formatter, ResultsStayIntactAndDistinctAndSurviveAssignment) {
  CQXDataFormat format;
  std::vector<ResultText> results;
  for (std::int32_t i = 0; i < 20; ++i) results.push_back(format.FormatNumber(i * 1001, 1));
  CQXDataFormat other;
  EXPECT_EQ(&(other = format), &other);
  EXPECT_EQ(Utf8(other.FormatNumber(3, 0)), "3");
  EXPECT_EQ(std::set<ResultText>(results.begin(), results.end()).size(), results.size());
  EXPECT_EQ(Utf8(results[1]) + Utf8(results[19]), "1,00119,019");
}

TEST(Formatter, WorksAgainAfterARefusalAndFailureTextOutlivesIt) {
  ArenaScript arena;
  ResultText failure = nullptr;
  {
    CQXDataFormat format;
    format.Reset();
    format.Reset();
    arena.RefuseAll();
    failure = format.FormatNumber(1.5, 0);
    arena.RefuseAll(false);
    EXPECT_EQ(Utf8(format.FormatNumber(1.5, 0)), "1.50");
  }
  EXPECT_EQ(Utf8(failure), "[MEM_ERR]");
}

TEST(Formatter, OtherIntegerTypesReachTheOverloadOfTheirWidth) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatNumber(-1LL, 0)), "-1");
  EXPECT_EQ(Utf8(format.FormatNumber(~0ULL, 0)), "18446744073709551615");
  EXPECT_EQ(Utf8(format.FormatNumberEx(5U, 3, 0)), "005");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{256, 256, 256}));
  EXPECT_EQ(Utf8(format.FormatBitPerSecond(1500U)), "1.50 Kbps");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(1536ULL, QXFMT_BYTES_KB, 1)), "1.5 KBps");
}

template <typename Value>
void ExpectSetting(void (*set)(Value), Value (*get)(), std::int32_t start) {
  EXPECT_EQ(get(), static_cast<Value>(start));
  for (const std::int32_t any : {123456, -1, start}) {
    set(static_cast<Value>(any));
    EXPECT_EQ(static_cast<std::int32_t>(get()), any);
  }
}

TEST(Settings, StartValuesAndNoValueRefused) {
  ExpectSetting(QXFMT_SetByteFormat, QXFMT_GetByteFormat, 0);
  ExpectSetting(QXFMT_SetBitFormat, QXFMT_GetBitFormat, 0);
  ExpectSetting(QXFMT_SetBytePerSecondFormat, QXFMT_GetBytePerSecondFormat, 0);
  ExpectSetting(QXFMT_SetBitPerSecondFormat, QXFMT_GetBitPerSecondFormat, 0);
  ExpectSetting(QXFMT_SetNumberDecimalPlaces, QXFMT_GetNumberDecimalPlaces, 2);
  ExpectSetting(QXFMT_SetPercentageDecimalPlaces, QXFMT_GetPercentageDecimalPlaces, 2);
  ExpectSetting(QXFMT_SetDateTimeFormat, QXFMT_GetDateTimeFormat, 0);
  ExpectSetting(QXFMT_SetTimeAccuracy, QXFMT_GetTimeAccuracy, 2);
  ExpectSetting(QXFMT_SetDurationFormat, QXFMT_GetDurationFormat, 0);
}
