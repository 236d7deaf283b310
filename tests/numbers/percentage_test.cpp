#include "support/test.h"

using namespace qxfmt::test;

TEST(Percentage, OfIntegersWrapsAt32Bits) {
  const struct {
    std::int32_t value;
    const char* text;
  } cases[] = {{0, "0%"},
               {25, "2,500%"},
               {-1, "-100%"},
               {21474836, "2,147,483,600%"},
               {21474837, "-2,147,483,596%"},
               {INT32_MAX, "-100%"},
               {INT32_MIN, "0%"}};
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) EXPECT_EQ(Utf8(format.FormatPercentage(c.value)), c.text);
  EXPECT_EQ(arena.TakeSizes(), Sizes(std::size(cases), 128));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatPercentage(1)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatPercentage(1.0F)), "[MEM_ERR]");
}

TEST(Percentage, OfFloatsMultipliesInSinglePrecision) {
  const struct {
    float value;
    std::int32_t places;
    std::int32_t grouping;
    const char* text;
  } cases[] = {{0.5F, 0, 2, "50%"},
               {0.123F, 7, 3, "12.3000002%"},
               {12.5F, 2, 0, "1250.00%"},
               {1234.5678F, 5, -1, "123,456.77344%"},
               {-1234.5678F, 0, 1, "-123,457%"},
               {std::numeric_limits<float>::max(), 2, 2, "inf%"}};
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) {
    QXFMT_SetNumberDecimalPlaces(c.places);
    QXFMT_SetPercentageDecimalPlaces(c.grouping);
    EXPECT_EQ(Utf8(format.FormatPercentage(c.value)), c.text);
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes(std::size(cases), 256));
  QXFMT_SetPercentageDecimalPlaces(0);
  EXPECT_EQ(Utf8(format.FormatPercentage(12345)), "1234500%");
  QXFMT_SetNumberDecimalPlaces(2);
  QXFMT_SetPercentageDecimalPlaces(2);
}

TEST(BitPattern, GroupsOfFour) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatBinary(std::uint8_t{0xA5})), "1010 0101");
  EXPECT_EQ(Utf8(format.FormatBinary(std::uint16_t{0x1234})), "0001 0010 0011 0100");
  EXPECT_EQ(Utf8(format.FormatBinary(0x80000001U)), "1000 0000 0000 0000 0000 0000 0000 0001");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{64, 64, 128}));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatBinary(0U)), "[MEM_ERR]");
}
