#include <charconv>
#include <clocale>
#include <cstring>
#include <random>

#include "support/test.h"
#include "text/fixed_decimal.h"

using namespace qxfmt::test;
using qxfmt::ShortDecimal;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(DecimalText, Renderer) {
  const struct {
    double value;
    std::int32_t places;
    std::int32_t grouped;
    const char* text;
  } cases[] = {{1234567.891, 2, 0, "1234567.89"},
               {1234567.891, 2, INT32_MIN, "1,234,567.89"},
               {1234567.891, 32, 1, "1,234,567.89100000006146728992462158203125"},
               {1234567.891, INT32_MAX, 0, "1234567.89100000006146728992462158203125"},
               {-999.999, 2, 1, "-1,000.00"},
               {-100.0, 2, 1, "-100.00"},
               {-0.0, 0, 1, "-0"},
               {0.5, 0, 0, "0"},  // ties go to the even digit
               {0.125, 2, 0, "0.12"},
               {2.5, -1, 0, "2"},  // a negative count acts as 0
               {1.5, INT32_MIN, 1, "2"},
               {1e22, 2, 1, "10,000,000,000,000,000,000,000.00"},
               {-1e30, 0, 1, "-1,000,000,000,000,000,019,884,624,838,656"},
               {kInfinity, 2, 1, "inf"},
               {-std::nan(""), 0, 0, "-nan"},
               {1e300, 2, 0, ""},
               {-1e300, 2, 1, ""}};
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) {
    EXPECT_EQ(Utf8(format.FormatNumberEx(c.value, c.places, c.grouped)), c.text) << c.value;
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes(std::size(cases), 256));
  QXFMT_SetNumberDecimalPlaces(40);
  EXPECT_EQ(Utf8(format.FormatNumber(0.5, 0)), "0.50000000000000000000000000000000");
  QXFMT_SetNumberDecimalPlaces(2);
}

// The last count of integer digits that fits, and the one behind it.
TEST(DecimalText, LongestTexts) {
  const struct {
    std::int32_t places;
    std::int32_t grouped;
    int sign;
    int digits;
  } cases[] = {{0, 0, 1, 119}, {0, 0, -1, 118}, {0, 1, 1, 96},  {0, 1, -1, 95},
               {2, 0, 1, 116}, {2, 0, -1, 115}, {2, 1, 1, 93},  {2, 1, -1, 93},
               {32, 0, 1, 86}, {32, 0, -1, 85}, {32, 1, 1, 71}, {32, 1, -1, 70}};
  CQXDataFormat format;
  for (const auto& c : cases) {
    const double last = 5.0 * c.sign * std::pow(10.0, c.digits - 1);
    std::string text = Utf8(format.FormatNumberEx(last, c.places, c.grouped));
    std::erase(text, ',');
    const int decimals = c.places == 0 ? 0 : 1 + c.places;
    EXPECT_EQ(static_cast<int>(text.size()), c.digits + (c.sign < 0 ? 1 : 0) + decimals);
    EXPECT_EQ(Utf8(format.FormatNumberEx(last * 10, c.places, c.grouped)), "") << c.digits;
  }
  EXPECT_EQ(Utf8(format.FormatDecimal(5e122)).size(), 126U);
  EXPECT_EQ(Utf8(format.FormatDecimal(-5e122)), "");
}

TEST(DecimalText, MinimumDigits) {
  const struct {
    std::uint64_t value;
    std::int32_t places;
    const char* plain;
    const char* grouped;
  } cases[] = {{1234567, 2, "1234567", "1,234,567"},
               {5, 3, "005", "005"},
               {5, 9, "000005", "000,005"},
               {0, 1, "0", "0"},
               {0, 0, "", ""},
               {0, -7, "", ""},
               {UINT64_MAX, 6, "18446744073709551615", "18,446,744,073,709,551,615"}};
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) {
    EXPECT_EQ(Utf8(format.FormatNumberEx(c.value, c.places, 0)), c.plain);
    EXPECT_EQ(Utf8(format.FormatNumberEx(c.value, c.places, 8)), c.grouped);
    EXPECT_EQ(arena.TakeSizes(), (Sizes{256, 256}));
  }
}

TEST(DecimalText, TwoDecimals) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatDecimal(1234567.891F)), "1234567.88");
  EXPECT_EQ(Utf8(format.FormatDecimal(2.675)), "2.67");
  EXPECT_EQ(Utf8(format.FormatDecimal(-0.005)), "-0.01");
  EXPECT_EQ(Utf8(format.FormatDecimal(-0.005F)), "-0.00");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{128, 256, 256, 128}));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatDecimal(1.0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatNumberEx(1.0, 2, 1)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatNumberEx(std::uint64_t{1}, 2, 1)), "[MEM_ERR]");
}

// Bit patterns, magnitudes that occur, and exact ties: the fast path must give the digits of the
// standard library's exact conversion wherever it takes part.
TEST(DecimalText, FastPathAgreesWithTheGeneralOne) {
  std::mt19937_64 random(3);
  int taken = 0;
  for (int i = 0; taken < 1'000'000; ++i) {
    ASSERT_LT(i, 2'000'000) << "the fast path takes too few of them";
    double value = 0;
    const std::uint64_t bits = random();
    if (i % 3 == 0) {
      std::memcpy(&value, &bits, sizeof(value));
    } else if (i % 3 == 1) {
      value = std::ldexp(static_cast<double>(bits), -static_cast<int>(random() % 140));
    } else {  // few digits behind the point: k + 1/2, 1/4 ... in the last place that shows
      value = std::ldexp(static_cast<double>(bits >> (bits % 64)), -static_cast<int>(bits % 22));
    }
    const auto places = static_cast<std::int32_t>(random() % (i % 2 == 0 ? 4 : 21));
    ShortDecimal fast;
    if (!fast.Read(value, places, qxfmt::Grouping::kNone)) continue;
    ++taken;
    char16_t text[128];
    *fast.Write(text) = u'\0';
    char exact[512];
    *std::to_chars(exact, exact + 511, value, std::chars_format::fixed, places).ptr = '\0';
    ASSERT_EQ(Utf8(text), exact) << std::hexfloat << value << ' ' << places;
  }
}

TEST(DecimalText, PointIsTheLocalesAndCommaIsNot) {
  CQXDataFormat format;
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the test's own locales are missing";
  EXPECT_EQ(Utf8(format.FormatNumberEx(1234.5, 2, 1)), "1,234,50");
  EXPECT_EQ(Utf8(format.FormatByte(1536, QXFMT_BYTES_B, 1)), "1,536,0 B");
  ASSERT_NE(std::setlocale(LC_ALL, "ps_AF.UTF-8"), nullptr);
  EXPECT_EQ(Utf8(format.FormatNumberEx(1234.5, 2, 1)), "1,234\u066B50");
  EXPECT_EQ(Utf8(format.FormatNumberEx(1e40, 1, 0)).substr(41), "\u066B0");  // the general path
  std::setlocale(LC_ALL, "C");
  EXPECT_EQ(Utf8(format.FormatDecimal(0.5)), "0.50");
}
