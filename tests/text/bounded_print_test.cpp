#include "text/bounded_print.h"

#include <algorithm>

#include "support/test.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"

using namespace qxfmt;
using namespace qxfmt::test;

// Prints under every limit from 0 on: the whole text or nothing, and no unit at or beyond the
// limit, whatever a field touches where it has the room.
template <typename... Pieces>
void ExpectPrint(const std::string& expected, const Pieces&... pieces) {
  const auto size = static_cast<std::int32_t>(expected.size());
  for (std::int32_t limit = -1; limit <= size + 8; ++limit) {
    char16_t area[128];
    std::fill(std::begin(area), std::end(area), u'#');
    const std::int32_t printed = BoundedPrint(area, limit, pieces...);
    EXPECT_EQ(printed, limit > size ? size : -1) << expected << " in " << limit;
    if (limit > 0) {
      EXPECT_EQ(Utf8(area), limit > size ? expected : "");
    }
    EXPECT_TRUE(std::all_of(area + std::max(limit, 0), std::end(area),
                            [](char16_t unit) { return unit == u'#'; }))
        << expected << " in " << limit;
  }
}

ShortDecimal ShortNumber(double value, std::int32_t places, Grouping grouping) {
  ShortDecimal decimal;
  EXPECT_TRUE(decimal.Read(value, places, grouping)) << value;
  return decimal;
}

TEST(BoundedPrint, WholeTextOrNothing) {
  constexpr auto kCommas = Grouping::kCommas;
  ExpectPrint("");
  ExpectPrint("", u"", std::u16string_view());
  ExpectPrint("100%", Decimal(100), u'%');
  ExpectPrint("-2147483648/7", Decimal(INT32_MIN), u'/', Decimal(std::uint64_t{7}));
  ExpectPrint("-9,223,372,036,854,775,808", Decimal(INT64_MIN, kCommas));
  ExpectPrint("[]:65535", u'[', u"", u"]:", Decimal(std::uint16_t{65535}));
  ExpectPrint("-7", Decimal(std::int16_t{-7}));
  ExpectPrint("-32,768", Decimal(INT16_MIN, kCommas));
  ExpectPrint("000,042", PaddedDecimal(42, 6, kCommas));
  ExpectPrint("", PaddedDecimal(0, 0, kCommas));
  ExpectPrint("date -2.67 KB", u"date ", ShortNumber(-2.675, 2, Grouping::kNone), u" KB");
  ExpectPrint("12", ShortNumber(12.25, 0, Grouping::kNone));
  ExpectPrint("-12,345.7", ShortNumber(-12345.67, 1, kCommas));
  ExpectPrint("-1,000,000,000,000,000,019,884,624,838,656.0", LongDecimal(-1e30, 1, kCommas));
  ExpectPrint("-10,633,823,966,279,326,983,230,456,482,242,756,608.00",
              LongDecimal(-0x1p123, 2, kCommas), u"");
  ExpectPrint("nan", LongDecimal(std::nan(""), 32, kCommas));
}
