#include "text/bounded_print.h"

#include <algorithm>

#include "support/test.h"
#include "text/decimal.h"
#include "text/fixed_decimal.h"

using namespace qxfmt;

// Prints under every limit: the whole text or nothing, and no unit at or beyond the limit, whatever
// a field touches where it has the room.
template <typename... Pieces>
void ExpectPrint(const std::string& text, const Pieces&... pieces) {
  constexpr std::int32_t kMostSlack = 8;
  const auto size = static_cast<std::int32_t>(text.size());
  for (std::int32_t limit = -1; limit <= size + kMostSlack; ++limit) {
    SCOPED_TRACE("'" + text + "' within " + std::to_string(limit));
    std::u16string area(128, u'#');
    EXPECT_EQ(BoundedPrint(area.data(), limit, pieces...), size < limit ? size : -1);
    if (limit > 0) {
      EXPECT_EQ(Utf8(area.c_str()), size < limit ? text : "");
    }
    const auto outside = static_cast<std::size_t>(std::max(limit, 0));
    EXPECT_EQ(area.find_first_not_of(u'#', outside), area.npos);
  }
}

ShortDecimal ShortNumber(double value, std::int32_t places, Grouping grouping) {
  ShortDecimal decimal;
  EXPECT_TRUE(decimal.Read(value, places, grouping)) << value;
  return decimal;
}

TEST(BoundedPrint, WholeTextOrNothing) {
  constexpr auto kCommas = Grouping::kCommas;
  ExpectPrint("-2147483648/7", Decimal(INT32_MIN), u'/', Decimal(std::uint64_t{7}));
  ExpectPrint("-9,223,372,036,854,775,808", Decimal(INT64_MIN, kCommas));
  ExpectPrint("[]:65535", u'[', u"", u"]:", Decimal(std::uint16_t{65535}));
  ExpectPrint("000,042", PaddedDecimal(42, 6, kCommas));
  ExpectPrint("", PaddedDecimal(0, 0, kCommas));
  ExpectPrint("date -2.67 KB", u"date ", ShortNumber(-2.675, 2, Grouping::kNone), u" KB");
  constexpr double kLargest = -0x1.fffffffffffffp63;  // of the short ones
  constexpr std::int32_t kMost = detail::kShortPlaces;
  ExpectPrint(WithCommas(Exact(kLargest, kMost)), ShortNumber(kLargest, kMost, kCommas));
  ExpectPrint("-12,346", ShortNumber(-12345.67, 0, kCommas));
  ExpectPrint("-1,000,000,000,000,000,019,884,624,838,656.0", LongDecimal(-1e30, 1, kCommas));
  ExpectPrint("-10,633,823,966,279,326,983,230,456,482,242,756,608.00",
              LongDecimal(-0x1p123, 2, kCommas), u"");
  ExpectPrint("nan", LongDecimal(std::nan(""), 32, kCommas));
}
