#include "frame/bounded_print.h"

#include <algorithm>

#include "support/test.h"

using namespace qxfmt;
using namespace qxfmt::test;

// Prints under every limit from 0 on: the whole text or nothing, and no unit at or beyond the
// limit.
template <Pattern kPattern, typename... Arguments>
void ExpectPrint(const std::string& expected, const Arguments&... arguments) {
  const auto size = static_cast<std::int32_t>(expected.size());
  for (std::int32_t limit = 0; limit <= size + 2; ++limit) {
    char16_t area[128];
    std::fill(std::begin(area), std::end(area), u'#');
    const std::int32_t printed = BoundedPrint<kPattern>(area, limit, arguments...);
    EXPECT_EQ(printed, limit > size ? size : -1) << expected << " in " << limit;
    if (limit > 0) {
      EXPECT_EQ(Utf8(area), limit > size ? expected : "");
    }
    EXPECT_TRUE(std::all_of(area + limit, std::end(area), [](char16_t c) { return c == u'#'; }));
  }
}

TEST(BoundedPrint, WholeTextOrNothing) {
  ExpectPrint<u"">("");
  ExpectPrint<u"100%%">("100%");
  ExpectPrint<u"%d/%02d/%02d">("2023/01/31", 2023, 1, 31);
  ExpectPrint<u"%d/%02d/%02d">("-2147483648/-1/123", INT32_MIN, -1, 123);
  ExpectPrint<u"%03d|%06d|%09d">("-05|000042|1234567890", -5, 42, 1234567890);
  ExpectPrint<u"%s %s.%03d">("date time.007", u"date", std::u16string_view(u"time"), 7);
  ExpectPrint<u"[%s]:%u">("[]:65535", u"", std::uint16_t{65535});
  ExpectPrint<u"%x%02x:%02X">("a0b:FF", std::uint8_t{10}, std::uint8_t{11}, std::uint8_t{255});
  ExpectPrint<u"%.2f">("-2.67", -2.675);
  ExpectPrint<u"%.*f">("0.500", WithPrecision<double>{0.5, 3});
  ExpectPrint<u"%I64d %I64u">("-9223372036854775808 18446744073709551615", INT64_MIN, UINT64_MAX);
}
