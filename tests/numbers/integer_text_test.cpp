#include "support/test.h"

using namespace qxfmt::test;

// The plain text is the grouped one without its commas.
template <typename Value>
void ExpectNumber(Value value, const std::string& grouped, std::uint32_t block) {
  ArenaScript arena;
  CQXDataFormat format;
  std::string plain = grouped;
  std::erase(plain, ',');
  EXPECT_EQ(Utf8(format.FormatNumber(value, 0)), plain);
  for (const std::int32_t on : {2, INT32_MIN}) {
    EXPECT_EQ(Utf8(format.FormatNumber(value, on)), grouped);
  }
  EXPECT_EQ(format.FormatNumber(value, 0)[block / 2 - 1], u'\0');  // whatever was printed
  EXPECT_EQ(arena.TakeSizes(), Sizes(4, block));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatNumber(value, 1)), "[MEM_ERR]");
}

TEST(IntegerText, ExtremesOfEachWidth) {
  ExpectNumber(std::uint64_t{0}, "0", 256);
  ExpectNumber(UINT64_MAX, "18,446,744,073,709,551,615", 256);
  ExpectNumber(INT64_MIN, "-9,223,372,036,854,775,808", 256);
  ExpectNumber(UINT32_MAX, "4,294,967,295", 128);
  ExpectNumber(INT32_MIN, "-2,147,483,648", 128);
  ExpectNumber(std::uint16_t{UINT16_MAX}, "65,535", 64);
  ExpectNumber(std::int16_t{INT16_MIN}, "-32,768", 64);
}

std::string WithCommas(std::string number) {
  const std::size_t first_digit = number[0] == '-' ? 1 : 0;
  for (std::size_t at = number.size(); at > first_digit + 3;) number.insert(at -= 3, ",");
  return number;
}

// Every count of digits, and where it changes.
TEST(IntegerText, PowersOfTenAndTheirNeighbours) {
  CQXDataFormat format;
  for (std::int64_t power = 1; power < INT64_MAX / 10; power *= 10) {
    for (const std::int64_t value : {power - 1, power, -power + 1, -power}) {
      const std::string text = std::to_string(value);
      EXPECT_EQ(Utf8(format.FormatNumber(value, 0)), text);
      EXPECT_EQ(Utf8(format.FormatNumber(value, 1)), WithCommas(text));
    }
  }
}
