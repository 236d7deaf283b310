// What all results have in common: their life, their blocks, their failure; and the settings.

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

TEST(Formatter, ResultsOfManyCallsStayIntactAndDistinct) {
  CQXDataFormat format;
  std::vector<ResultText> results;
  for (std::int32_t i = 0; i < 20; ++i) results.push_back(format.FormatNumber(i * 1001, 1));
  EXPECT_EQ(std::set<ResultText>(results.begin(), results.end()).size(), results.size());
  EXPECT_EQ(Utf8(results[0]), "0");
  EXPECT_EQ(Utf8(results[1]), "1,001");
  EXPECT_EQ(Utf8(results[19]), "19,019");
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
    arena.RefuseNone();
    EXPECT_EQ(Utf8(format.FormatNumber(1.5, 0)), "1.50");
    format.Reset();
  }
  EXPECT_EQ(Utf8(failure), "[MEM_ERR]");
}

TEST(Formatter, AssignmentLeavesBothSidesWithTheirResults) {
  CQXDataFormat source;
  CQXDataFormat target;
  const ResultText of_source = source.FormatNumber(1, 0);
  const ResultText of_target = target.FormatNumber(2, 0);
  EXPECT_EQ(&(target = source), &target);
  EXPECT_EQ(Utf8(of_source), "1");
  EXPECT_EQ(Utf8(of_target), "2");
  EXPECT_EQ(Utf8(target.FormatNumber(3, 0)), "3");
}

TEST(Formatter, OtherIntegerTypesReachTheOverloadOfTheirWidth) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatNumber(-1LL, 0)), "-1");
  EXPECT_EQ(Utf8(format.FormatNumber(~0ULL, 0)), "18446744073709551615");
  EXPECT_EQ(Utf8(format.FormatNumberEx(5U, 3, 0)), "005");
  EXPECT_EQ(Utf8(format.FormatNumber(std::uint8_t{200}, 0)), "200");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{256, 256, 256, 128}));
  EXPECT_EQ(Utf8(format.FormatBitPerSecond(1500U)), "1.50 Kbps");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(1536ULL, QXFMT_BYTES_KB, 1)), "1.5 KBps");
}

template <typename Value>
void ExpectSetting(void (*set)(Value), Value (*get)(), std::int32_t start) {
  EXPECT_EQ(get(), static_cast<Value>(start));
  for (const std::int32_t any : {123456, -1, 40, INT32_MIN}) {
    set(static_cast<Value>(any));
    EXPECT_EQ(static_cast<std::int32_t>(get()), any);
  }
  set(static_cast<Value>(start));
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

}  // namespace
}  // namespace qxfmt::test
