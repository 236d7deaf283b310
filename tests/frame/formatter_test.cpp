// What all results have in common, and the settings.

#include "support/test.h"

TEST(Formatter, AssignmentTakesNothing) {
  CQXDataFormat format;
  CQXDataFormat other;
  const ResultText text = format.FormatNumber(1, 0);
  EXPECT_EQ(&(other = format), &other);
  EXPECT_EQ(Utf8(text), "1");
}

// In the last unit of a block, whatever was printed; fresh blocks are full of rubbish.
TEST(Formatter, ForcesATerminator) {
  CQXDataFormat format;
  EXPECT_EQ(format.FormatNumber(std::uint16_t{7}, 0)[31], u'\0');
  EXPECT_EQ(format.FormatByte(1, 1)[63], u'\0');
  EXPECT_EQ(format.FormatNumberEx(1.0, 1, 0)[127], u'\0');
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
