#include <bit>
#include <cstdlib>
#include <regex>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/hostile_text.h"
#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

TEST(Ipv4, PrintsEveryOctet) {
  ArenaScript arena;
  CQXDataFormat format;
  for (std::uint32_t octet = 0; octet < 256; ++octet) {
    const std::string digits = std::to_string(octet);
    const std::string text = digits + ".255." + digits + "." + digits;
    const std::uint32_t address = octet * 0x01010001 | 0xFF00;
    std::u16string area = u"................x";
    EXPECT_EQ(format.FormatIpAddress(address, area.data(), 16), area.data());
    EXPECT_EQ(Utf8(area.c_str()) + Utf8(area.substr(16)), text + "x");
    EXPECT_EQ(Utf8(format.FormatIpAddress(address)), text);
    EXPECT_EQ(QXFMT_GetIpAddress(AtPageEnd(text), nullptr), address);
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes(256, 40));
  for (const std::string& port : Words("0 9 10 99 100 999 1000 9999 10000 65535 8080")) {
    const std::uint16_t value = QXFMT_GetPortVal(AtPageEnd(port), nullptr);
    EXPECT_EQ(Utf8(format.FormatIpPort(UINT32_MAX, value)), "255.255.255.255:" + port);
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes(11, 128));
  char16_t area[] = u"untouched";
  for (const std::int32_t length : {15, 0, -1, INT32_MIN}) {
    EXPECT_EQ(Utf8(format.FormatIpAddress(0, area, length)) + Utf8(area), "[BUF_LEN_ERR]untouched");
  }
  EXPECT_EQ(arena.TakeSizes(), Sizes{});
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatIpAddress(0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIpPort(0, 0)), "[MEM_ERR]");
}

TEST(Ipv4, LaxReaderAndStrictTest) {
  // Text, address, flag, strict test.
  const std::vector<std::string> rows = Words(R"(
      1.2.3.4 1.2.3.4 1 1          001.002.003.004 1.2.3.4 1 1  255.255.255.255 255.255.255.255 1 1
      0.0.0.0 0.0.0.0 1 1          010.0.0.099 10.0.0.99 1 1    1.2.3. 1.2.3.0 1 0
      1..3.4 1.0.3.4 1 0           .1.2.3 0.1.2.3 1 0           ... 0.0.0.0 1 0
      0001.2.3.4 1.2.3.4 1 0       1.2.3.0255 1.2.3.255 1 0     1.2 1.2.0.0 0 0
      1 1.0.0.0 0 0                1.2.3.4. 0.0.0.0 0 0         001.002.003.0004 0.0.0.0 0 0
      1.2.3.00255 0.0.0.0 0 0      1234.0.0.0 0.0.0.0 0 0       256.1.1.1 0.0.0.0 0 0
      _1.2.3.4 0.0.0.0 0 0         1.2.3.4_ 0.0.0.0 0 0         0x1.2.3.4 0.0.0.0 0 0)");
  CQXDataFormat format;
  for (auto row = rows.begin(); row != rows.end(); row += 4) {
    std::int32_t flag = -1;
    const std::uint32_t address = QXFMT_GetIpAddress(AtPageEnd(*row), &flag);
    EXPECT_EQ(Utf8(format.FormatIpAddress(address)), row[1]) << *row;
    EXPECT_EQ(std::to_string(flag), row[2]) << *row;
    EXPECT_EQ(std::to_string(QXFMT_IsValidIpAddress(AtPageEnd(*row))), row[3]) << *row;
  }
  EXPECT_EQ(QXFMT_GetIpAddress(nullptr, nullptr), 0U);
  EXPECT_EQ(QXFMT_IsValidIpAddress(nullptr) + QXFMT_IsValidIpMask(WideText{}), 0);
}

TEST(Ipv4, AgreesWithARegularExpressionOnMutatedTexts) {
  const std::regex groups(R"((\d{0,4})(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?)");
  const auto check = [&](const std::u16string& text) {
    const std::string narrow = Narrow(text);
    std::smatch match;
    bool lax = !text.empty() && text.size() <= 15 && std::regex_match(narrow, match, groups);
    bool strict = lax;
    std::uint32_t address = 0;
    for (std::size_t i = 0; lax && i < 4; ++i) {
      const int octet = std::atoi(match[i + 1].str().c_str());
      strict = strict && match[i + 1].length() >= 1 && match[i + 1].length() <= 3;
      lax = octet <= 255;
      address |= static_cast<std::uint32_t>(octet) << (8 * i);
    }
    std::int32_t flag = -1;
    EXPECT_EQ(QXFMT_GetIpAddress(AtPageEnd(text), &flag), lax ? address : 0) << narrow;
    EXPECT_EQ(flag, lax && match[4].matched) << narrow;
    EXPECT_EQ(QXFMT_IsValidIpAddress(AtPageEnd(text)), lax && strict) << narrow;
  };
  ForMutatedTexts(Words("1.2.3.4 255.10.0.249 001.02.3.0255 1..3. 128.192.224.240"),
                  u"0123569.. x/:\uFF11\u0131\u012E", 20000, check);
}

TEST(Port, Text) {
  for (const std::string& text :
       Words("0 00000 00080 65535 65536 99999 000080 +80 -1 8_0 1a 9/ _")) {
    const bool valid = text.find_first_not_of("0123456789") == text.npos && text.size() <= 5 &&
                       std::atoi(text.c_str()) <= 65535;
    std::int32_t flag = -1;
    EXPECT_EQ(QXFMT_GetPortVal(AtPageEnd(text), &flag), valid ? std::atoi(text.c_str()) : 0);
    EXPECT_EQ(flag, valid) << text;
    EXPECT_EQ(QXFMT_IsValidPort(AtPageEnd(text)), valid) << text;
  }
  EXPECT_EQ(QXFMT_IsValidPort(u"") + QXFMT_IsValidPort(WideText{}) + QXFMT_IsValidPort(u"\uFF18"),
            0);
  EXPECT_EQ(QXFMT_IsValidPort(std::uint16_t{0}), 1);
}

TEST(Netmask, ConvertsAndJudges) {
  std::uint32_t mask = 0;
  for (std::uint32_t bits = 0; bits < 256; ++bits) {
    EXPECT_EQ(QXFMT_BitsToMask(static_cast<std::uint8_t>(bits)), bits <= 32 ? mask : 0);
    if (bits > 32) continue;
    const std::uint32_t next = bits == 32 ? 0 : 0x80U >> bits % 8 << bits / 8 * 8;
    EXPECT_EQ(QXFMT_MaskToBits(mask), bits);
    EXPECT_EQ(QXFMT_MaskToBits(~next), bits);  // with holes
    mask |= next;
  }
  CQXDataFormat format;
  for (std::uint32_t i = 0; i < 4 * 256; ++i) {
    mask = std::rotl(i & 0xFF, static_cast<int>(i >> 8) * 8);
    const bool valid = mask != 0 && std::countl_one(i << 24) == std::popcount(i & 0xFF);
    EXPECT_EQ(QXFMT_IsValidIpMask(mask), valid) << mask;
    EXPECT_EQ(QXFMT_IsValidIpMask(format.FormatIpAddress(mask)), valid) << mask;
  }
  EXPECT_EQ(QXFMT_IsValidIpMask(u"255.0.255.000"), 1);
  EXPECT_EQ(QXFMT_IsValidIpMask(u"255.255.255.") + QXFMT_IsValidIpMask(u"0255.0.0.0"), 0);
}

}  // namespace
}  // namespace qxfmt::test
