#include "support/test.h"

TEST(Percentage, OfIntegersWrapsAt32Bits) {
  ExpectRows({{CALL(FormatPercentage(25)), "2,500%", {128}},
              {CALL(FormatPercentage(21474836)), "2,147,483,600%", {128}},
              {CALL(FormatPercentage(21474837)), "-2,147,483,596%", {128}},
              {CALL(FormatPercentage(INT32_MAX)), "-100%", {128}}});
  QXFMT_SetPercentageDecimalPlaces(0);
  ExpectRows({{CALL(FormatPercentage(12345)), "1234500%", {128}}});
  QXFMT_SetPercentageDecimalPlaces(2);
}

void ExpectFloat(float value, std::int32_t places, std::int32_t grouping, const std::string& text) {
  QXFMT_SetNumberDecimalPlaces(places);
  QXFMT_SetPercentageDecimalPlaces(grouping);
  ExpectRows({{CALL(FormatPercentage(value)), text, {256}}});
}

// Ends with the settings as they start.
TEST(Percentage, OfFloatsMultipliesInSinglePrecision) {
  ExpectFloat(0.5F, 0, 2, "50%");
  ExpectFloat(0.123F, 7, 3, "12.3000002%");
  ExpectFloat(12.5F, 2, 0, "1250.00%");
  ExpectFloat(1234.5678F, 5, -1, "123,456.77344%");
  ExpectFloat(-3e36F, 32, 1, WithCommas(Exact(-3e36F * 100.0F, 32)) + "%");  // the longest
  ExpectFloat(FLT_MAX, 2, 2, "inf%");
}

TEST(BitPattern, GroupsOfFour) {
  const char* const kText32 = "1000 0000 0000 0000 0000 0000 0000 0001";
  ExpectRows({{CALL(FormatBinary(std::uint8_t{0xA5})), "1010 0101", {64}},
              {CALL(FormatBinary(std::uint16_t{0x1234})), "0001 0010 0011 0100", {64}},
              {CALL(FormatBinary(0x80000001U)), kText32, {128}}});
}
