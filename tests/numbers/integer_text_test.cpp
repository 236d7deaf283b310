#include <cstdint>
#include <limits>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

template <typename Value>
void ExpectNumber(Value value, const char* plain, const char* grouped, std::uint32_t block) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatNumber(value, 0)), plain);
  for (const std::int32_t on : {1, 2, -1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(Utf8(format.FormatNumber(value, on)), grouped);
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes(5, block));
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatNumber(value, 0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatNumber(value, 1)), "[MEM_ERR]");
}

TEST(IntegerText, ExtremesOfEachWidth) {
  ExpectNumber(std::uint64_t{0}, "0", "0", 256);
  ExpectNumber(UINT64_MAX, "18446744073709551615", "18,446,744,073,709,551,615", 256);
  ExpectNumber(std::int64_t{0}, "0", "0", 256);
  ExpectNumber(INT64_MIN, "-9223372036854775808", "-9,223,372,036,854,775,808", 256);
  ExpectNumber(std::uint32_t{0}, "0", "0", 128);
  ExpectNumber(UINT32_MAX, "4294967295", "4,294,967,295", 128);
  ExpectNumber(std::int32_t{0}, "0", "0", 128);
  ExpectNumber(INT32_MIN, "-2147483648", "-2,147,483,648", 128);
  ExpectNumber(std::uint16_t{0}, "0", "0", 64);
  ExpectNumber(std::uint16_t{UINT16_MAX}, "65535", "65,535", 64);
  ExpectNumber(std::int16_t{0}, "0", "0", 64);
  ExpectNumber(std::int16_t{INT16_MIN}, "-32768", "-32,768", 64);
}

}  // namespace
}  // namespace qxfmt::test
