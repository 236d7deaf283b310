#include "support/test.h"

using namespace qxfmt::test;

constexpr std::uint64_t kTopBit = std::uint64_t{1} << 63;

TEST(Quantity, UnitByMagnitude) {
  const struct {
    std::uint64_t value;
    const char* bytes;  // 2 places
    const char* cut;    // bytes, 0 places
    const char* bits;
    const char* rounded;
  } cases[] = {{0, "0.00 B", "0 B", "0.00 b", "0 b"},
               {1000, "1000.00 B", "1000 B", "1.00 Kb", "1 Kb"},
               {1023, "1023.00 B", "1023 B", "1.02 Kb", "1 Kb"},
               {1024, "1.00 KB", "1 KB", "1.02 Kb", "1 Kb"},
               {1500, "1.46 KB", "1 KB", "1.50 Kb", "2 Kb"},
               {999999, "976.56 KB", "976 KB", "1000.00 Kb", "1000 Kb"},
               {1000000, "976.56 KB", "976 KB", "1.00 Mb", "1 Mb"},
               {1048575, "1024.00 KB", "1023 KB", "1.05 Mb", "1 Mb"},
               {1048576, "1.00 MB", "1 MB", "1.05 Mb", "1 Mb"},
               {1073741823, "1024.00 MB", "1023 MB", "1.07 Gb", "1 Gb"},
               {1073741824, "1.00 GB", "1 GB", "1.07 Gb", "1 Gb"},
               {1099511627775, "1024.00 GB", "1023 GB", "1.10 Tb", "1 Tb"},
               {1099511627776, "1.00 TB", "1 TB", "1.10 Tb", "1 Tb"},
               {kTopBit - 1, "8388608.00 TB", "8388607 TB", "9223372.04 Tb", "9223372 Tb"},
               {kTopBit, "9223372036854775808.00 B", "9223372036854775808 B",
                "9223372036854775808.00 b", "9223372036854775808 b"}};
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) {
    EXPECT_EQ(Utf8(format.FormatByte(c.value, 2)), c.bytes);
    EXPECT_EQ(Utf8(format.FormatByte(c.value, QXFMT_BYTES_AUTO, 0)), c.cut);
    EXPECT_EQ(Utf8(format.FormatBit(c.value, QXFMT_BYTES_AUTO, 2)), c.bits);
    EXPECT_EQ(Utf8(format.FormatBit(c.value, -1)), c.rounded);
    // The rates of integers are the sizes with other texts.
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(c.value)), c.bytes + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(c.value)), c.bits + std::string("ps"));
    EXPECT_EQ(arena.TakeSizes(),
              (Sizes{128, 256, 128, 256, 128, 256, 128, 256, 128, 256, 128, 256}));
  }
}

TEST(Quantity, RatesOfDoubles) {
  const struct {
    double value;
    const char* bytes;  // without "ps"
    const char* bits;
  } cases[] = {{1023.9, "1023.90 B", "1.02 Kb"},
               {1024.0, "1.00 KB", "1.02 Kb"},
               {1e15, "909.49 TB", "1000.00 Tb"},
               {std::nextafter(0x1p63, 0), "8388608.00 TB", "9223372.04 Tb"},
               {0x1p63, "9223372036854775808.00 B", "9223372036854775808.00 b"},
               {-5000.0, "-5000.00 B", "-5000.00 b"},
               {std::nan(""), "nan B", "nan b"},
               {1e116, " B", " b"}};  // the number itself exceeds its block
  ArenaScript arena;
  CQXDataFormat format;
  for (const auto& c : cases) {
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(c.value)), c.bytes + std::string("ps")) << c.value;
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(c.value)), c.bits + std::string("ps")) << c.value;
    EXPECT_EQ(arena.TakeSizes(), (Sizes{128, 256, 128, 256}));
  }
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(1e54)).size(), 62U);
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(1e55)), "");
}

TEST(Quantity, UnitFromAnArgumentGroups) {
  const struct {
    std::int32_t unit;
    const char* bytes;
    const char* cut;
    const char* bits;
    const char* rounded;
    const char* byte_rate;  // of 1234567.5, 3 places
  } cases[] = {{QXFMT_BYTES_KB, "1,205,632,705.20 KB", "1,205,632,705 KB", "1,234,567,890.12 Kb",
                "1,234,567,890 Kb", "1,205.632 KBps"},
               {QXFMT_BYTES_GB, "1,149.78 GB", "1,149 GB", "1,234.57 Gb", "1,235 Gb", "0.001 GBps"},
               {7, "1,234,567,890,123.00 B", "1,234,567,890,123 B", "1,234,567,890,123.00 b",
                "1,234,567,890,123 b", "1,234,567.500 Bps"}};
  constexpr std::uint64_t kValue = 1234567890123;
  CQXDataFormat format;
  for (const auto& c : cases) {
    const auto unit = static_cast<QXFMT_BYTES_FORMAT>(c.unit);
    EXPECT_EQ(Utf8(format.FormatByte(kValue, unit, 2)), c.bytes);
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(kValue, unit, 0)), c.cut + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBit(kValue, unit, 2)), c.bits);
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(kValue, unit, 0)), c.rounded + std::string("ps"));
    EXPECT_EQ(Utf8(format.FormatBytePerSecond(1234567.5, unit, 3)), c.byte_rate);
  }
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 2)), "16,777,216.00 TB");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_TB, 0)), "16,777,215 TB");
  // Two rounded steps: to -2^63 + 1024, and then to 2^63, since 2^63 + 1024 is a tie. One step
  // would go up.
  EXPECT_EQ(Utf8(format.FormatBit(kTopBit + 1025, QXFMT_BYTES_B, 0)),
            "9,223,372,036,854,775,808 b");
  EXPECT_EQ(Utf8(format.FormatByte(UINT64_MAX, QXFMT_BYTES_B, 99)),
            "18,446,744,073,709,551,616." + std::string(32, '0') + " B");
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 31)).size(), 62U);
  EXPECT_EQ(Utf8(format.FormatBytePerSecond(UINT64_MAX, QXFMT_BYTES_B, 32)), "");
}

TEST(Quantity, UnitFromASettingDoesNot) {
  CQXDataFormat format;
  QXFMT_SetByteFormat(QXFMT_BYTES_KB);
  QXFMT_SetBitFormat(static_cast<QXFMT_BYTES_FORMAT>(9));
  QXFMT_SetBytePerSecondFormat(QXFMT_BYTES_GB);
  QXFMT_SetBitPerSecondFormat(QXFMT_BYTES_MB);
  QXFMT_SetNumberDecimalPlaces(0);
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, 2)), "1205632705.20 KB");
  EXPECT_EQ(Utf8(format.FormatByte(1234567890123, QXFMT_BYTES_MB, 2)), "1,177,375.69 MB");
  EXPECT_EQ(Utf8(format.FormatBit(1536000, QXFMT_BYTES_AUTO, 2)), "1536000.00 b");
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
    ArenaScript arena;
    arena.Refuse(inner ? 1 : 0);
    EXPECT_EQ(Utf8(format.FormatByte(1536, 2)), inner ? "[MEM_ERR] KB" : "[MEM_ERR]");
    EXPECT_EQ(arena.TakeSizes(), inner ? (Sizes{128, 256}) : Sizes{128});
    arena.Refuse(inner ? 3 : 1);
    EXPECT_EQ(Utf8(format.FormatBitPerSecond(2500000.0)), inner ? "[MEM_ERR] Mbps" : "[MEM_ERR]");
  }
}
