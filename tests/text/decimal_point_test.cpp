#include "text/decimal_point.h"

#include <clocale>

#include "support/platform.h"
#include "support/test.h"

void ExpectPoint(const char* locale, const std::string& point) {
  ASSERT_NE(std::setlocale(LC_ALL, locale), nullptr) << "no " << locale << ", see LOCPATH";
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatNumberEx(1234.5, 2, 1)), "1,234" + point + "50");
  EXPECT_EQ(Utf8(format.FormatNumberEx(1e40, 1, 0)), Exact(1e40, 0) + point + "0");
  EXPECT_EQ(Utf8(format.FormatByte(1536, QXFMT_BYTES_B, 1)), "1,536" + point + "0 B");
  std::setlocale(LC_ALL, "C");
}

// The comma of the groups stays.
TEST(DecimalPoint, IsTheLocales) {
  for (const auto& [locale, point] : LocalesAndPoints()) ExpectPoint(locale, point);
  EXPECT_EQ(qxfmt::DecodeDecimalPoint(""), u'.');
}
