#include "support/test.h"

TEST(DecimalText, Renderer) {
  const char* const kExact = "1,234,567.89100000006146728992462158203125";
  ExpectRows({{CALL(FormatNumberEx(1234567.891, 2, 0)), "1234567.89", {256}},
              {CALL(FormatNumberEx(1234567.891, 32, 1)), kExact, {256}},
              {CALL(FormatNumberEx(1234567.891, INT32_MAX, INT32_MIN)), kExact, {256}},
              {CALL(FormatNumberEx(-0.0, 0, 1)), "-0", {256}},
              {CALL(FormatNumberEx(2.5, -1, 0)), "2", {256}},  // a tie; -1 acts as 0
              {CALL(FormatNumberEx(HUGE_VAL, 2, 1)), "inf", {256}},
              {CALL(FormatNumberEx(-std::nan(""), 0, 1)), "-nan", {256}},
              {CALL(FormatNumber(-1234.5, 1)), "-1,234.50", {256}}});
  QXFMT_SetNumberDecimalPlaces(INT32_MIN);
  ExpectRows({{CALL(FormatNumber(-1234.5, 0)), "-1234", {256}}});
  QXFMT_SetNumberDecimalPlaces(2);
}

// 119 units without commas; with them 126 before they come in, and 127 after.
TEST(DecimalText, LongestTexts) {
  ExpectRows({{CALL(FormatNumberEx(5e118, 0, 0)), Exact(5e118, 0), {256}},
              {CALL(FormatNumberEx(5e119, 0, 0)), "", {256}},
              {CALL(FormatNumberEx(-5e84, 32, 0)), Exact(-5e84, 32), {256}},
              {CALL(FormatNumberEx(-5e85, 32, 0)), "", {256}},
              {CALL(FormatNumberEx(-5e94, 0, 1)), WithCommas(Exact(-5e94, 0)), {256}},
              {CALL(FormatNumberEx(-5e95, 0, 1)), "", {256}},
              {CALL(FormatNumberEx(5e95, 0, 1)), WithCommas(Exact(5e95, 0)), {256}},
              {CALL(FormatNumberEx(5e96, 0, 1)), "", {256}},
              {CALL(FormatNumberEx(5e92, 2, 1)), WithCommas(Exact(5e92, 2)), {256}},
              {CALL(FormatNumberEx(5e93, 2, 1)), "", {256}}});
}

// Of any unsigned type.
TEST(DecimalText, LeastDigits) {
  ExpectRows({{CALL(FormatNumberEx(5U, 3, 0)), "005", {256}},
              {CALL(FormatNumberEx(5U, 9, 0)), "000005", {256}},
              {CALL(FormatNumberEx(5U, 6, 8)), "000,005", {256}},
              {CALL(FormatNumberEx(0ULL, 1, 0)), "0", {256}},
              {CALL(FormatNumberEx(0ULL, -7, 1)), "", {256}},
              {CALL(FormatNumberEx(UINT64_MAX, 0, 0)), "18446744073709551615", {256}},
              {CALL(FormatNumberEx(UINT64_MAX, 6, 1)), "18,446,744,073,709,551,615", {256}}});
}

TEST(DecimalText, TwoDecimals) {
  ExpectRows({{CALL(FormatDecimal(1234567.891F)), "1234567.88", {128}},
              {CALL(FormatDecimal(-FLT_MAX)), Exact(-FLT_MAX, 2), {128}},
              {CALL(FormatDecimal(-0.005)), "-0.01", {256}},
              {CALL(FormatDecimal(5e122)), Exact(5e122, 2), {256}},  // 126 units
              {CALL(FormatDecimal(-5e122)), "", {256}}});
}
