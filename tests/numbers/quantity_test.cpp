#include "support/test.h"

constexpr std::uint64_t kTopBit = std::uint64_t{1} << 63;
constexpr auto kNoSuchUnit = static_cast<QXFMT_BYTES_FORMAT>(7);

// The unit of a value comes from its magnitude and does not group; one given with it does. Rates
// also take other unsigned types.
TEST(Quantity, EachOverload) {
  constexpr auto kKilo = QXFMT_BYTES_KB;
  constexpr std::uint64_t kCount = 2500000;
  constexpr double kRate = 2500000.75;
  const Sizes kBlocks = {128, 256};
  ExpectRows(
      {{CALL(FormatByte(kCount, 1)), "2.4 MB", kBlocks, "[MEM_ERR] MB"},
       {CALL(FormatByte(kCount, kKilo, 1)), "2,441.4 KB", kBlocks, "[MEM_ERR] KB"},
       {CALL(FormatBit(kCount, 1)), "2.5 Mb", kBlocks, "[MEM_ERR] Mb"},
       {CALL(FormatBit(kCount, kKilo, 1)), "2,500.0 Kb", kBlocks, "[MEM_ERR] Kb"},
       {CALL(FormatBytePerSecond(kCount)), "2.38 MBps", kBlocks, "[MEM_ERR] MBps"},
       {CALL(FormatBytePerSecond(2500000ULL, kKilo, 0)), "2,441 KBps", kBlocks, "[MEM_ERR] KBps"},
       {CALL(FormatBytePerSecond(kRate)), "2.38 MBps", kBlocks, "[MEM_ERR] MBps"},
       {CALL(FormatBytePerSecond(kRate, kKilo, 0)), "2,441 KBps", kBlocks, "[MEM_ERR] KBps"},
       {CALL(FormatBitPerSecond(2500000U)), "2.50 Mbps", kBlocks, "[MEM_ERR] Mbps"},
       {CALL(FormatBitPerSecond(kCount, kKilo, 1)), "2,500.0 Kbps", kBlocks, "[MEM_ERR] Kbps"},
       {CALL(FormatBitPerSecond(kRate)), "2.50 Mbps", kBlocks, "[MEM_ERR] Mbps"},
       {CALL(FormatBitPerSecond(kRate, kKilo, 3)), "2,500.001 Kbps", kBlocks, "[MEM_ERR] Kbps"}});
}

// Bytes with 2 places and with none, where the rest is cut off; bits likewise, rounded.
void ExpectUnits(std::uint64_t value, const char* bytes, const char* cut_bytes, const char* bits,
                 const char* rounded_bits) {
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatByte(value, 2)), bytes);
  EXPECT_EQ(Utf8(format.FormatByte(value, QXFMT_BYTES_AUTO, 0)), cut_bytes);
  EXPECT_EQ(Utf8(format.FormatBit(value, QXFMT_BYTES_AUTO, 2)), bits);
  EXPECT_EQ(Utf8(format.FormatBit(value, -1)), rounded_bits);
}

TEST(Quantity, UnitByMagnitude) {
  ExpectUnits(999, "999.00 B", "999 B", "999.00 b", "999 b");
  ExpectUnits(1000, "1000.00 B", "1000 B", "1.00 Kb", "1 Kb");
  ExpectUnits(1023, "1023.00 B", "1023 B", "1.02 Kb", "1 Kb");
  ExpectUnits(1024, "1.00 KB", "1 KB", "1.02 Kb", "1 Kb");
  ExpectUnits(1500, "1.46 KB", "1 KB", "1.50 Kb", "2 Kb");
  ExpectUnits(999999, "976.56 KB", "976 KB", "1000.00 Kb", "1000 Kb");
  ExpectUnits(1048575, "1024.00 KB", "1023 KB", "1.05 Mb", "1 Mb");
  ExpectUnits(1048576, "1.00 MB", "1 MB", "1.05 Mb", "1 Mb");
  ExpectUnits(1073741823, "1024.00 MB", "1023 MB", "1.07 Gb", "1 Gb");
  ExpectUnits(1073741824, "1.00 GB", "1 GB", "1.07 Gb", "1 Gb");
  ExpectUnits(1099511627775, "1024.00 GB", "1023 GB", "1.10 Tb", "1 Tb");
  ExpectUnits(1099511627776, "1.00 TB", "1 TB", "1.10 Tb", "1 Tb");
  ExpectUnits(kTopBit - 1, "8388608.00 TB", "8388607 TB", "9223372.04 Tb", "9223372 Tb");
  ExpectUnits(kTopBit, "9223372036854775808.00 B", "9223372036854775808 B",
              "9223372036854775808.00 b", "9223372036854775808 b");
}

void ExpectRates(double value, const std::string& bytes, const std::string& bits) {
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(value)), bytes) << value;
  EXPECT_EQ(Utf8(format.FormatBitPerSecond(value)), bits) << value;
}

TEST(Quantity, RatesOfDoubles) {
  ExpectRates(1023.9, "1023.90 Bps", "1.02 Kbps");
  ExpectRates(1024.0, "1.00 KBps", "1.02 Kbps");
  ExpectRates(1e9, "953.67 MBps", "1.00 Gbps");
  ExpectRates(std::nextafter(0x1p63, 0), "8388608.00 TBps", "9223372.04 Tbps");
  ExpectRates(0x1p63, "9223372036854775808.00 Bps", "9223372036854775808.00 bps");
  ExpectRates(-5000.0, "-5000.00 Bps", "-5000.00 bps");
  ExpectRates(std::nan(""), "nan Bps", "nan bps");
  const std::string kLongest = Exact(1e54, 2);  // with the unit 62 units
  ExpectRates(1e54, kLongest + " Bps", kLongest + " bps");
  ExpectRates(1e55, "", "");
  ExpectRates(5e116, " Bps", " bps");  // the number itself exceeds its block
}

TEST(Quantity, UnitFromAnArgumentGroups) {
  // Two rounded steps: to -2^63 + 1024, and then to 2^63, since 2^63 + 1024 is a tie. One step
  // would go up.
  constexpr std::uint64_t kTwiceRounded = kTopBit + 1025;
  const std::string largest = "18,446,744,073,709,551,616." + std::string(31, '0');
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatBit(1234567890123, QXFMT_BYTES_GB, 0)), "1,235 Gb");
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, kNoSuchUnit, 0)), "1,234,567,890,123 B");
  EXPECT_EQ(Utf8(format.FormatByte(1023, QXFMT_BYTES_FORMAT(-1), 0)), "1,023 B");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 2)), "16,777,216.00 TB");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 0)), "16,777,215 TB");
  EXPECT_EQ(Utf8(format.FormatBit(kTwiceRounded, QXFMT_BYTES_B, 0)), "9,223,372,036,854,775,808 b");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_B, 99)), largest + "0 B");
  // 62 units, and one more.
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 31)), largest + " Bps");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 32)), "");
}

TEST(Quantity, UnitFromASettingDoesNotGroup) {
  QXFMT_SetByteFormat(QXFMT_BYTES_KB);
  QXFMT_SetBitFormat(kNoSuchUnit);
  QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_GB);
  QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_MB);
  QXFMT_SetNumberDecimalPlaces(0);
  constexpr std::uint64_t kThreeQuarters = 805306368;  // of a GB
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, 2)), "1205632705.20 KB");
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, QXFMT_BYTES_MB, 2)), "1,177,375.69 MB");
  EXPECT_EQ(Utf8(format.FormatBit(1536000, QXFMT_BYTES_AUTO, 2)), "1536000.00 b");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(kThreeQuarters)), "0 GBps");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(double{kThreeQuarters})), "1 GBps");
  EXPECT_EQ(Utf8(format.FormatBitPerSecond(1500000.0)), "2 Mbps");
  QXFMT_SetByteFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBitFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetNumberDecimalPlaces(2);
}
