#include <regex>

#include "support/hostile_text.h"
#include "support/test.h"

namespace qxfmt::test {

TEST(Ipv4, PrintsEveryOctetAndPort) {
  const std::regex masks(R"((?!0\.0\.0\.0)((0|128|192|224|240|248|25[245])(\.|$)){4})");
  ArenaScript arena;
  CQXDataFormat format;
  for (std::uint32_t i = 0; i <= 0xFFFF; ++i, format.Reset()) {
    const std::string half = std::to_string(i & 0xFF) + "." + std::to_string(i >> 8);
    const std::string text = half + "." + half;
    const std::uint32_t address = i << 16 | i;
    const std::uint16_t port = QXFMT_GetPortVal(AtPageEnd(Wide(std::to_string(i))), nullptr);
    std::u16string area(17, u'x');
    ASSERT_EQ(format.FormatIpAddress(address, area.data(), 16), area.data());
    const auto small = 15 - static_cast<std::int32_t>(i << 15);
    ASSERT_EQ(Utf8(format.FormatIpAddress(~address, area.data(), small)), "[BUF_LEN_ERR]");
    ASSERT_EQ(Utf8(area.c_str()) + Utf8(area.substr(16)), text + "x");
    ASSERT_EQ(Utf8(format.FormatIpAddress(address)), text);
    ASSERT_EQ(Utf8(format.FormatIpPort(address, port)), text + ":" + std::to_string(i));
    ASSERT_EQ(arena.TakeSizes(), (Sizes{40, 128}));
    ASSERT_EQ(QXFMT_GetIpAddress(AtPageEnd(Wide(text)), nullptr), address);
    ASSERT_EQ(QXFMT_IsValidIpMask(address), std::regex_match(text, masks)) << text;
  }
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatIpAddress(0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIpPort(0, 0)), "[MEM_ERR]");
}

TEST(Ipv4, AgreesWithRegularExpressionsOnMutatedTexts) {
  const std::regex lax(R"((\d{0,4})(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?(?:\.(\d{0,4}))?)");
  const std::regex strict(R"((\d{1,3}\.){3}\d{1,3})"), digits(R"(\d{1,5})");
  const auto check = [&](const std::string& peer, WideText text) {
    std::smatch match;
    bool read = !peer.empty() && peer.size() <= 15 && std::regex_match(peer, match, lax);
    std::uint32_t address = 0;
    for (std::size_t i = 0; read && i < 4; ++i) {
      const int octet = std::stoi("0" + match[i + 1].str());
      read = octet <= 255;
      address |= static_cast<std::uint32_t>(octet) << (8 * i);
    }
    const int valid = read && std::regex_match(peer, strict);
    std::int32_t flags[] = {-1, -1};
    EXPECT_EQ(QXFMT_GetIpAddress(text, &flags[0]), read ? address : 0) << peer;
    EXPECT_EQ(flags[0], read && match[4].matched) << peer;
    EXPECT_EQ(QXFMT_IsValidIpAddress(text), valid) << peer;
    EXPECT_EQ(QXFMT_IsValidIpMask(text), valid & QXFMT_IsValidIpMask(address)) << peer;
    const int port = std::regex_match(peer, digits) ? std::stoi(peer) : 65536;
    const bool is_port = port <= 65535;
    EXPECT_EQ(QXFMT_GetPortVal(text, &flags[1]), is_port ? port : 0) << peer;
    EXPECT_EQ(flags[1], is_port) << peer;
    EXPECT_EQ(QXFMT_IsValidPort(text), is_port) << peer;
  };
  ForMutatedTexts(R"(
      1.2.3.4 001.002.003.004 255.255.255.255 0.0.0.0 010.0.0.099 1.2.3. 1..3.4 ... 1.2 1 1234.0.0.0
      0001.2.3.4 1.2.3.0255 1.2.3.4. 001.002.003.0004 256.1.1.1 255.0.255.000 128.192.224.240
      255.10.0.249 0 00000 00080 65535 65536 99999 000080)",
                  u"0123569.. x/:+-\uFF11\u0131\u012E", check);
  EXPECT_EQ(QXFMT_IsValidPort(std::uint16_t{0}), 1);
}

TEST(Netmask, Converts) {
  std::uint32_t mask = 0;
  for (std::uint32_t bits = 0; bits < 256; ++bits) {
    EXPECT_EQ(QXFMT_BitsToMask(static_cast<std::uint8_t>(bits)), bits <= 32 ? mask : 0);
    const std::uint32_t next = bits < 32 ? 0x80U >> bits % 8 << bits / 8 * 8 : 0;
    EXPECT_EQ(QXFMT_MaskToBits(mask), std::min(bits, 32U));
    EXPECT_EQ(QXFMT_MaskToBits(~next), std::min(bits, 32U));  // with holes
    mask |= next;
  }
}

}  // namespace qxfmt::test
