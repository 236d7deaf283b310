#include <arpa/inet.h>

#include <array>
#include <regex>

#include "support/hostile_text.h"
#include "support/test.h"

namespace qxfmt::test {

using Bytes = std::array<std::uint8_t, 16>;

// The first bytes as groups. Tries every length of a stretch of zero bytes.
static std::string Compressed(const Bytes& bytes, std::ptrdiff_t count) {
  const auto last = bytes.begin() + count;
  auto length = count + 1;
  auto zeros = last;
  while (zeros == last) zeros = std::search_n(bytes.begin(), last, --length, 0);
  const auto begin = (zeros - bytes.begin() + 1) / 2 * 2;
  const auto end = (zeros - bytes.begin() + length) / 2 * 2;
  std::ostringstream text;
  for (const std::uint8_t* at = bytes.data(); at < bytes.data() + count; at += 2) {
    const bool gap = begin < end && at == bytes.data() + begin;
    text << (gap ? "::" : at == bytes.data() ? "" : ":");
    if (gap) at = bytes.data() + end;
    if (at < bytes.data() + count) text << std::hex << (at[0] << 8 | at[1]);
  }
  return text.str();
}

TEST(Ipv6Text, ZeroRunsAndRoundTrips) {
  std::mt19937 random(3);
  ArenaScript arena;
  CQXDataFormat format;
  for (std::uint16_t i = 0; i < 60000; ++i, format.Reset()) {
    Bytes bytes{};
    const auto filled = random() & (i % 3 == 0 ? ~0U : random());
    for (std::size_t k = 0; k < 16; ++k)
      bytes[k] = static_cast<std::uint8_t>((filled >> (k >> i % 2) & 1) * (1 + random() % 255));
    const auto type = static_cast<QXFMT_IPV6_TYPE>(i % 5 - 1);
    const std::string text = Utf8(format.FormatIPv6Address(bytes.data(), type));
    const std::string head = Compressed(bytes, type == QXFMT_IPV6_EMBEDDED_V4 ? 12 : 16);
    ASSERT_TRUE(type == QXFMT_IPV6_FULL ? text.size() == 39 : text.starts_with(head)) << text;
    ASSERT_EQ(Utf8(format.FormatIpv6Port(bytes.data(), i, type)),
              "[" + text + "]:" + std::to_string(i));
    ASSERT_EQ(arena.TakeSizes(), (Sizes{100, 128, 100}));
    Bytes read{};
    ASSERT_EQ(QXFMT_GetIPv6Address(AtPageEnd(Wide(text)), read.data()), 1) << text;
    ASSERT_EQ(read, bytes) << text;
    char area[INET6_ADDRSTRLEN];
    const std::string peer = inet_ntop(AF_INET6, bytes.data(), area, sizeof area);
    // The peer writes a lone zero group out, and some addresses with a dotted tail.
    const bool alike = i % 2 != 0 && peer.find("::") != peer.npos && peer.find('.') == peer.npos;
    ASSERT_TRUE(!alike || type % 2 != 0 || text == peer) << text;
  }
  const Bytes bytes = {0xAB, 0xCD, 0x0E};
  EXPECT_EQ(Utf8(format.FormatIPv6Address(bytes.data(), QXFMT_IPV6_FULL)),
            "abcd:0e00:0000:0000:0000:0000:0000:0000");
  EXPECT_EQ(Utf8(format.FormatIPv6Address(nullptr, QXFMT_IPV6_FULL)), "[INPUT_ERR_NULL]");
  EXPECT_EQ(Utf8(format.FormatIpv6Port(nullptr, 80, QXFMT_IPV6_FULL)), "[[INPUT_ERR_NULL]]:80");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{100, 128}));
  arena.Refuse(3 * 60000 + 3);
  EXPECT_EQ(Utf8(format.FormatIpv6Port(bytes.data(), 80, QXFMT_IPV6_FULL)), "[[MEM_ERR]]:80");
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatIPv6Address(bytes.data(), QXFMT_IPV6_FULL)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIpv6Port(nullptr, 80, QXFMT_IPV6_FULL)), "[MEM_ERR]");
}

TEST(Ipv6Parse, AgreesWithAPeerOnMutatedTexts) {
  // What goes beyond the peer, written its way; "!" is no part of an address.
  const std::pair<std::regex, const char*> rules[] = {
      {std::regex(": +:"), "!"},
      {std::regex("^([^.]*::[^.]*[^:.]): +$"), "$1"},
      {std::regex("(^|:|\\. ) *(?=\\.)"), "$1 0"},
      {std::regex(" +"), ""},
      {std::regex("([:.])(00(?=\\d(\\.|$))|0(?=\\d\\d?(\\.|$)))"), "$1"}};
  const auto check = [&](std::string peer, WideText text) {
    peer.erase(0, peer.find_first_not_of(' '));
    if (peer.size() > 99) peer = "!";
    for (const auto& [beyond, own] : rules) peer = std::regex_replace(peer, beyond, own);
    Bytes meaning = {0xA5};
    Bytes read = meaning;
    const int valid = inet_pton(AF_INET6, peer.c_str(), meaning.data());
    EXPECT_EQ(QXFMT_GetIPv6Address(text, read.data()), valid) << Utf8(text);
    EXPECT_EQ(read, meaning) << Utf8(text);  // untouched by both if refused
    EXPECT_EQ(QXFMT_IsValidIPv6Address(text), valid) << Utf8(text);
  };
  ForMutatedTexts(R"(
      :: AbCd:eF01:: 0001:0010:0100:1000:: 1:2:3:4:5:6:7:8 1:2:3:4:5:6:7:: ::1:2:3:4:5:6:7
      1:2:3::5:6:7:8 1::2:1.2.3.4 1:2:3:4:5:6:100.20.3.255 abcd:ef01::2345:_ 1:2:3:4:5::1.2.3.4
      1.2.3.4 ::1.2.3.256 ::.1._.2_ _1_2::3_:_4 ::1:2:3:4:5:1.2.3.4 ::01.002.003.004 12345::
      1:2:3:4:5:6:.1.2.3 1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1 __::)" +
                      std::string(97, '_'),
                  u"0127afF:::..  g\t\u0131\uFF11", check);
}

}  // namespace qxfmt::test
