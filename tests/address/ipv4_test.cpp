#include <regex>
#include <set>

#include "support/hostile_text.h"

TEST(Ipv4, Texts) {
  ExpectRows({{CALL(FormatIpAddress(0x0100007F)), "127.0.0.1", {40}},
              {CALL(FormatIpPort(UINT32_MAX, 65535)), "255.255.255.255:65535", {128}}});
  CQXDataFormat format;
  std::u16string area(17, u'x');
  EXPECT_EQ(format.FormatIpAddress(UINT32_MAX, area.data(), 16), area.data());
  for (const std::int32_t too_short : {15, 0, -1, INT32_MIN}) {
    EXPECT_EQ(Utf8(format.FormatIpAddress(0, area.data(), too_short)), "[BUF_LEN_ERR]");
  }
  EXPECT_EQ(area, std::u16string(u"255.255.255.255\0x", 17));
}

TEST(Ipv4, EveryOctetAndPortThereAndBack) {
  CQXDataFormat format;
  for (std::uint32_t i = 0; i <= 0xFFFF; ++i, format.Reset()) {
    const std::uint32_t address = i << 16 | i;
    const std::string half = std::to_string(i & 0xFF) + "." + std::to_string(i >> 8);
    const std::string text = half + "." + half;
    const std::string port = std::to_string(i);
    ASSERT_EQ(Utf8(format.FormatIpAddress(address)), text);
    ASSERT_EQ(Utf8(format.FormatIpPort(address, static_cast<std::uint16_t>(i))), text + ":" + port);
    ASSERT_EQ(QXFMT_GetIpAddress(AtPageEnd(Wide(text)), nullptr), address);
    ASSERT_EQ(QXFMT_GetPortVal(AtPageEnd(Wide(port)), nullptr), i);
  }
}

// An address is read from one to four groups of at most four digits, and valid with all four groups
// of one to three digits.
void ExpectAddress(const std::string& peer, WideText text) {
  static const std::regex lax(R"((\d{0,4})(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?)");
  static const std::regex strict(R"((\d{1,3}\.){3}\d{1,3})");
  std::smatch groups;
  bool is_read = !peer.empty() && peer.size() <= 15 && std::regex_match(peer, groups, lax);
  std::uint32_t address = 0;
  for (std::size_t i = 0; is_read && i < 4; ++i) {
    const auto octet = static_cast<std::uint32_t>(std::stoi("0" + groups[i + 1].str()));
    is_read = octet <= 255;
    address |= octet << (8 * i);
  }
  const bool has_all = is_read && groups[4].matched;
  const bool is_valid = is_read && std::regex_match(peer, strict);
  std::int32_t flag = -1;
  EXPECT_EQ(QXFMT_GetIpAddress(text, &flag), is_read ? address : 0) << peer;
  EXPECT_EQ(flag, has_all ? 1 : 0) << peer;
  EXPECT_EQ(QXFMT_GetIpAddress(text, nullptr), is_read ? address : 0) << peer;
  EXPECT_EQ(QXFMT_IsValidIpAddress(text), is_valid ? 1 : 0) << peer;
  EXPECT_EQ(QXFMT_IsValidIpMask(text), is_valid ? QXFMT_IsValidIpMask(address) : 0) << peer;
}

void ExpectPort(const std::string& peer, WideText text) {
  static const std::regex digits(R"(\d{1,5})");
  const int number = std::regex_match(peer, digits) ? std::stoi(peer) : -1;
  const bool is_valid = number >= 0 && number <= 65535;
  std::int32_t flag = -1;
  EXPECT_EQ(QXFMT_GetPortVal(text, &flag), is_valid ? number : 0) << peer;
  EXPECT_EQ(flag, is_valid ? 1 : 0) << peer;
  EXPECT_EQ(QXFMT_IsValidPort(text), is_valid ? 1 : 0) << peer;
}

TEST(Ipv4, AgreesWithRegularExpressionsOnMutatedTexts) {
  const std::u16string_view alphabet = u"0123569.. x/:+-\uFF11\u0131\u012E";
  ForMutatedTexts(
      "1.2.3.4 001.002.003.004 255.255.255.255 0.0.0.0 010.0.0.099 1.2.3. 1..3.4 ... "
      "1.2 1 1234.0.0.0 0001.2.3.4 1.2.3.0255 1.2.3.4. 001.002.003.0004 256.1.1.1 "
      "255.0.255.000 128.192.224.240 255.10.0.249",
      alphabet, ExpectAddress);
  ForMutatedTexts("0 00000 00080 65535 65536 99999 000080", alphabet, ExpectPort);
  EXPECT_EQ(QXFMT_IsValidPort(std::uint16_t{0}), 1);
}

TEST(Ipv4, ReadsNoFurtherThanTheAnswerNeeds) {
  for (const auto text : {u"0001.0001.0001.2", u"00000", u"1.2.3.4."}) {
    EXPECT_EQ(QXFMT_GetIpAddress(WithoutTerminator(text), nullptr), 0U) << Utf8(text);
  }
  for (const auto text : {u"000000", u"0000x", u"x"}) {
    EXPECT_EQ(QXFMT_IsValidPort(WithoutTerminator(text)), 0) << Utf8(text);
  }
}

TEST(Netmask, EveryLengthAndOctet) {
  std::uint64_t ones =
      0xFFFFFFFF00000000;  // what comes into the low half is the mask, in host order
  for (std::uint32_t bits = 0; bits <= 32; ++bits, ones >>= 1) {
    std::uint32_t mask = 0;
    for (const int shift : {0, 8, 16, 24}) {
      mask |= static_cast<std::uint32_t>(ones >> (24 - shift) & 0xFF) << shift;
    }
    EXPECT_EQ(QXFMT_BitsToMask(static_cast<std::uint8_t>(bits)), mask);
    EXPECT_EQ(QXFMT_MaskToBits(mask), bits);
  }
  EXPECT_EQ(QXFMT_BitsToMask(33), 0U);
  EXPECT_EQ(QXFMT_MaskToBits(0x00FF00FE), 7);  // with holes

  const std::set<std::uint32_t> octets = {0, 128, 192, 224, 240, 248, 252, 254, 255};
  for (std::uint32_t octet = 0; octet <= 255; ++octet) {
    for (const int shift : {0, 8, 16, 24}) {
      const std::uint32_t mask = ~(0xFFU << shift) | octet << shift;
      EXPECT_EQ(QXFMT_IsValidIpMask(mask), octets.count(octet)) << std::hex << mask;
    }
  }
  EXPECT_EQ(QXFMT_IsValidIpMask(0U), 0);
}
