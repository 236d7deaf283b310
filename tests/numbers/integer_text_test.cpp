#include "support/test.h"

void ExpectNumber(auto value, const char* plain, const char* grouped, std::uint32_t block) {
  ExpectRows({{CALL(FormatNumber(value, 0)), plain, {block}},
              {CALL(FormatNumber(value, 1)), grouped, {block}},
              {CALL(FormatNumber(value, INT32_MIN)), grouped, {block}}});
}

TEST(IntegerText, EachWidth) {
  ExpectNumber(UINT64_MAX, "18446744073709551615", "18,446,744,073,709,551,615", 256);
  ExpectNumber(INT64_MIN, "-9223372036854775808", "-9,223,372,036,854,775,808", 256);
  ExpectNumber(UINT32_MAX, "4294967295", "4,294,967,295", 128);
  ExpectNumber(INT32_MIN, "-2147483648", "-2,147,483,648", 128);
  ExpectNumber(std::uint16_t{UINT16_MAX}, "65535", "65,535", 64);
  ExpectNumber(std::int16_t{INT16_MIN}, "-32768", "-32,768", 64);
  ExpectNumber(std::uint64_t{0}, "0", "0", 256);
  // Another type of one of these widths.
  ExpectNumber(-123LL, "-123", "-123", 256);
  ExpectNumber(~0ULL, "18446744073709551615", "18,446,744,073,709,551,615", 256);
}
