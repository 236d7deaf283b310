// Calls as one writes them, with numbers of types for which there is no overload. What must not
// compile is listed in tests/package/check-refused-calls.

#include <type_traits>

#include "support/test.h"

namespace {

template <typename... Integers>
void ForTypes(auto check) {
  (check(Integers{5}), ...);
}

}  // namespace

TEST(Calls, LiteralsDoTheObvious) {
  ExpectRows({
      {CALL(FormatPercentage(0.123)), "12.30%", {256}},
      {CALL(FormatPercentage(-0.5L)), "-50.00%", {256}},
      {CALL(FormatPercentage(1e39)), "inf%", {256}},
      {CALL(FormatPercentage(1U)), "100%", {128}},
      {CALL(FormatPercentage(UINT32_MAX)), "-100%", {128}},
      {CALL(FormatNumberEx(5, 3, 0)), "005", {256}},
      {CALL(FormatNumberEx(-5, 3, 0)), "-5", {256}},
      {CALL(FormatNumberEx(INT64_MIN, 3, 1)), "-9,223,372,036,854,775,808", {256}},
      {CALL(FormatDecimal(-5)), "-5.00", {256}},
      {CALL(FormatDecimal(UINT64_MAX)), "18446744073709551616.00", {256}},
      {CALL(FormatByte(1536, 2)), "1.50 KB", {128, 256}, "[MEM_ERR] KB"},
      {CALL(FormatBit(1500L, QXFMT_BYTES_B, 0)), "1,500 b", {128, 256}, "[MEM_ERR] b"},
      {CALL(FormatBitPerSecond(0)), "0.00 bps", {128, 256}, "[MEM_ERR] bps"},
      {CALL(FormatBitPerSecond(1000)), "1.00 Kbps", {128, 256}, "[MEM_ERR] Kbps"},
      {CALL(FormatBitPerSecond(-1000)), "-1000.00 bps", {128, 256}, "[MEM_ERR] bps"},
      {CALL(FormatBytePerSecond(1535, QXFMT_BYTES_KB, 0)), "1 KBps", {128, 256}, "[MEM_ERR] KBps"},
      {CALL(FormatBytePerSecond(-1535, QXFMT_BYTES_KB, 0)),
       "-1 KBps",
       {128, 256},
       "[MEM_ERR] KBps"},
      {CALL(FormatBytePerSecond(INT64_MIN)),
       "-9223372036854775808.00 Bps",
       {128, 256},
       "[MEM_ERR] Bps"},
  });
  for (const int port : {-1, 65536, INT32_MIN, INT32_MAX}) EXPECT_EQ(QXFMT_IsValidPort(port), 0);
  for (const int port : {0, 80, 65535}) EXPECT_EQ(QXFMT_IsValidPort(port), 1);
  EXPECT_EQ(QXFMT_IsValidPort(0), 1);  // neither a null text
  EXPECT_EQ(QXFMT_IsValidPort(1ULL << 32), 0);
}

// A negative count that the compiler cannot see is one modulo 2^64, as it always was.
TEST(Calls, NegativeCountsOfBytes) {
  volatile int unseen = -1;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatByte(unseen, 0)), "18446744073709551616 B");
  EXPECT_EQ(Utf8(format.FormatBit(unseen, QXFMT_BYTES_B, 0)), "18,446,744,073,709,551,616 b");
}

TEST(Calls, EveryIntegerType) {
  CQXDataFormat format;
  ForTypes<char, signed char, unsigned char, short, unsigned short, int, unsigned, long,
           unsigned long, long long, unsigned long long>([&](auto five) {
    EXPECT_EQ(Utf8(format.FormatNumber(five, 0)), "5");
    EXPECT_EQ(Utf8(format.FormatNumberEx(five, 3, 0)), "005");
    EXPECT_EQ(Utf8(format.FormatDecimal(five)), "5.00");
    EXPECT_EQ(Utf8(format.FormatByte(five, 0)), "5 B");
    EXPECT_EQ(Utf8(format.FormatByte(five, QXFMT_BYTES_B, 1)), "5.0 B");
    EXPECT_EQ(Utf8(format.FormatBit(five, 0)), "5 b");
    EXPECT_EQ(Utf8(format.FormatBit(five, QXFMT_BYTES_B, 1)), "5.0 b");
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(five)), "5.00 Bps");
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(five, QXFMT_BYTES_B, 1)), "5.0 Bps");
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(five)), "5.00 bps");
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(five, QXFMT_BYTES_B, 1)), "5.0 bps");
    EXPECT_EQ(QXFMT_IsValidPort(five), 1);
    if constexpr (sizeof(five) <= 4) {
      EXPECT_EQ(Utf8(format.FormatPercentage(five)), "500%");
    }
    using Type = decltype(five);
    if constexpr (sizeof(five) <= 4 && std::is_unsigned_v<Type> && !std::is_same_v<Type, char>) {
      const std::string bits = Utf8(format.FormatBinary(five));
      EXPECT_EQ(bits.substr(sizeof(five) * 10 - 10), "0000 0101");
    }
  });
}
