#include "support/test.h"
#include "text/bounded_print.h"
#include "text/decimal.h"

using namespace qxfmt;

std::string Printed(const auto& number) {
  char16_t area[32];
  BoundedPrint(area, 32, number);
  return Utf8(area);
}

void ExpectDecimal(auto value) {
  const std::string text = std::to_string(value);
  EXPECT_EQ(Printed(Decimal(value)), text);
  EXPECT_EQ(Printed(Decimal(value, Grouping::kCommas)), WithCommas(text));
}

TEST(Digits, All16BitValues) {
  for (std::int32_t value = 0; value <= UINT16_MAX; ++value) {
    ExpectDecimal(static_cast<std::uint16_t>(value));
    ExpectDecimal(static_cast<std::int16_t>(value));
  }
}

// Every count of digits, and where it changes.
TEST(Digits, PowersOfTenAndTheirNeighbours) {
  for (std::uint64_t power = 1; power < UINT64_MAX / 10; power *= 10) {
    for (const std::uint64_t value : {power - 1, power, power + 1}) {
      ExpectDecimal(value);
      ExpectDecimal(static_cast<std::int64_t>(0 - value));
      ExpectDecimal(static_cast<std::int32_t>(0 - value));
    }
  }
}
