#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

constexpr std::uint64_t kTopBit = std::uint64_t{1} << 63;

TEST(Quantity, UnitByMagnitude) {
  struct Case {
    std::uint64_t value;
    const char* bytes;      // 2 places
    const char* bytes_cut;  // 0 places
    const char* bits;
    const char* bits_rounded;
  };
  const Case cases[] = {
      {0, "0.00 B", "0 B", "0.00 b", "0 b"},
      {1000, "1000.00 B", "1000 B", "1.00 Kb", "1 Kb"},
      {1023, "1023.00 B", "1023 B", "1.02 Kb", "1 Kb"},
      {1024, "1.00 KB", "1 KB", "1.02 Kb", "1 Kb"},
      {1500, "1.46 KB", "1 KB", "1.50 Kb", "2 Kb"},
      {1536, "1.50 KB", "1 KB", "1.54 Kb", "2 Kb"},
      {1000000, "976.56 KB", "976 KB", "1.00 Mb", "1 Mb"},
      {1048575, "1024.00 KB", "1023 KB", "1.05 Mb", "1 Mb"},
      {1048576, "1.00 MB", "1 MB", "1.05 Mb", "1 Mb"},
      {1073741823, "1024.00 MB", "1023 MB", "1.07 Gb", "1 Gb"},
      {1073741824, "1.00 GB", "1 GB", "1.07 Gb", "1 Gb"},
      {1099511627775, "1024.00 GB", "1023 GB", "1.10 Tb", "1 Tb"},
      {1099511627776, "1.00 TB", "1 TB", "1.10 Tb", "1 Tb"},
      {kTopBit - 1, "8388608.00 TB", "8388607 TB", "9223372.04 Tb", "9223372 Tb"},
      {kTopBit, "9223372036854775808.00 B", "9223372036854775808 B", "9223372036854775808.00 b",
       "9223372036854775808 b"},
      {UINT64_MAX, "18446744073709551616.00 B", "18446744073709551616 B",
       "18446744073709551616.00 b", "18446744073709551616 b"},
  };
  ArenaScript arena;
  CQXDataFormat format;
  for (const Case& c : cases) {
    EXPECT_EQ(Utf8(format.FormatByte(c.value, 2)), c.bytes);
    EXPECT_EQ(Utf8(format.FormatByte(c.value, QXFMT_BYTES_AUTO, 0)), c.bytes_cut);
    EXPECT_EQ(Utf8(format.FormatBit(c.value, QXFMT_BYTES_AUTO, 2)), c.bits);
    EXPECT_EQ(Utf8(format.FormatBit(c.value, 0)), c.bits_rounded);
    // The rates of integers are the sizes with other texts.
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(c.value)), c.bytes + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(c.value)), c.bits + std::string("ps"));
    EXPECT_EQ(arena.TakeSizes(),
              (Sizes{128, 256, 128, 256, 128, 256, 128, 256, 128, 256, 128, 256}));
  }
}

TEST(Quantity, RatesOfDoubles) {
  struct Case {
    double value;
    const char* bytes;
    const char* bits;
  };
  const Case cases[] = {
      {1023.9, "1023.90 Bps", "1.02 Kbps"},
      {1024.0, "1.00 KBps", "1.02 Kbps"},
      {1000000000.0, "953.67 MBps", "1.00 Gbps"},
      {9.3e18, "9300000000000000000.00 Bps", "9300000000000000000.00 bps"},
      {std::nextafter(0x1p63, 0), "8388608.00 TBps", "9223372.04 Tbps"},
      {1e30, "1000000000000000019884624838656.00 Bps", "1000000000000000019884624838656.00 bps"},
      {-0x1p64, "-18446744073709551616.00 Bps", "-18446744073709551616.00 bps"},
      {std::nan(""), "nan Bps", "nan bps"},
      {-std::numeric_limits<double>::infinity(), "-inf Bps", "-inf bps"},
      {1e55, "", ""},           // 63 units
      {1e116, " Bps", " bps"},  // the number itself exceeds its block
  };
  ArenaScript arena;
  CQXDataFormat format;
  for (const Case& c : cases) {
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(c.value)), c.bytes) << c.value;
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(c.value)), c.bits) << c.value;
    EXPECT_EQ(arena.TakeSizes(), (Sizes{128, 256, 128, 256}));
  }
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(1e54)).size(), 62U);
}

TEST(Quantity, ExplicitUnitGroups) {
  struct Case {
    std::int32_t unit;
    const char* bytes;
    const char* bytes_cut;
    const char* bits;
    const char* bits_rounded;
    const char* byte_rate;  // of 1234567.5, 3 places
    const char* bit_rate;
  };
  const Case cases[] = {
      {QXFMT_BYTES_B, "1,234,567,890,123.00 B", "1,234,567,890,123 B", "1,234,567,890,123.00 b",
       "1,234,567,890,123 b", "1,234,567.500 Bps", "1,234,567.500 bps"},
      {QXFMT_BYTES_KB, "1,205,632,705.20 KB", "1,205,632,705 KB", "1,234,567,890.12 Kb",
       "1,234,567,890 Kb", "1,205.632 KBps", "1,234.568 Kbps"},
      {QXFMT_BYTES_MB, "1,177,375.69 MB", "1,177,375 MB", "1,234,567.89 Mb", "1,234,568 Mb",
       "1.177 MBps", "1.235 Mbps"},
      {7, "1,234,567,890,123.00 B", "1,234,567,890,123 B", "1,234,567,890,123.00 b",
       "1,234,567,890,123 b", "1,234,567.500 Bps", "1,234,567.500 bps"},
  };
  constexpr std::uint64_t kValue = 1234567890123;
  CQXDataFormat format;
  for (const Case& c : cases) {
    const auto unit = static_cast<QXFMT_BYTES_FORMAT>(c.unit);
    EXPECT_EQ(Utf8(format.FormatByte(kValue, unit, 2)), c.bytes);
    EXPECT_EQ(Utf8(format.FormatByte(kValue, unit, 0)), c.bytes_cut);
    EXPECT_EQ(Utf8(format.FormatByte(kValue, unit, -1)), c.bytes_cut);
    EXPECT_EQ(Utf8(format.FormatBit(kValue, unit, 2)), c.bits);
    EXPECT_EQ(Utf8(format.FormatBit(kValue, unit, 0)), c.bits_rounded);
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(kValue, unit, 0)), c.bytes_cut + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(kValue, unit, 0)), c.bits_rounded + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(1234567.5, unit, 3)), c.byte_rate);
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(1234567.5, unit, 3)), c.bit_rate);
  }
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 2)), "16,777,216.00 TB");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 0)), "16,777,215 TB");
  // Converted in two rounded steps: -1024 is exact and so is the sum; in one step it is 2^64 -
  // 2048.
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX - 1023, QXFMT_BYTES_B, 0)),
            "18,446,744,073,709,551,616 B");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_B, 99)),
            "18,446,744,073,709,551,616." + std::string(32, '0') + " B");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 31)).size(), 62U);
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 32)), "");
}

TEST(Quantity, UnitFromASettingDoesNotGroup) {
  CQXDataFormat format;
  QXFMT_SetByteFormat(QXFMT_BYTES_KB);
  QXFMT_SetBitFormat(static_cast<QXFMT_BYTES_FORMAT>(9));
  QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_GB);
  QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_MB);
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, 2)), "1205632705.20 KB");
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, QXFMT_BYTES_MB, 2)), "1,177,375.69 MB");
  EXPECT_EQ(Utf8(format.FormatBit(1536000, QXFMT_BYTES_AUTO, 2)), "1536000.00 b");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(768.0, QXFMT_BYTES_KB, 2)), "0.75 KBps");
  QXFMT_SetNumberDecimalPlaces(0);
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(std::uint64_t{805306368})), "0 GBps");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(805306368.0)), "1 GBps");
  EXPECT_EQ(Utf8(format.FormatBitPerSecond(1500000.0)), "2 Mbps");
  QXFMT_SetNumberDecimalPlaces(2);
  QXFMT_SetByteFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBitFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_AUTO);
  QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_AUTO);
}

TEST(Quantity, RefusedBlocks) {
  CQXDataFormat format;
  for (const bool inner : {false, true}) {
    const auto expect = [&](const char* text, auto call) {
      ArenaScript arena;
      arena.Refuse(inner ? 1 : 0);
      EXPECT_EQ(Utf8(call()), inner ? text : "[MEM_ERR]");
      EXPECT_EQ(arena.TakeSizes(), inner ? (Sizes{128, 256}) : Sizes{128});
    };
    expect("[MEM_ERR] KB", [&] { return format.FormatByte(1536, 2); });
    expect("[MEM_ERR] Gb", [&] { return format.FormatBit(5, QXFMT_BYTES_GB, 2); });
    expect("[MEM_ERR] Bps", [&] { return format.FormatBytePerSecond(std::uint64_t{5}); });
    expect("[MEM_ERR] Mbps", [&] { return format.FormatBitPerSecond(2500000.0); });
  }
}

}  // namespace
}  // namespace qxfmt::test
