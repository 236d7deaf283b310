#include <array>
#include <regex>

#include "support/hostile_text.h"

using Bytes = std::array<std::uint8_t, 16>;

TEST(Ipv6Text, FullAndWithPort) {
  constexpr auto kFull = QXFMT_IPV6_FULL;
  constexpr auto kMixed = QXFMT_IPV6_EMBEDDED_V4;
  const std::uint8_t ip[] = {0xA1, 0xB1, 0xA2, 0xB2, 0xA3, 0xB3, 0xA4, 0xB4,
                             0xA5, 0xB5, 0xA6, 0xB6, 0xC7, 0xD7, 0xE8, 0xF8};
  const char* const text = "a1b1:a2b2:a3b3:a4b4:a5b5:a6b6:c7d7:e8f8";
  const char* const longest = "[a1b1:a2b2:a3b3:a4b4:a5b5:a6b6:199.215.232.248]:65535";
  ExpectRows({{CALL(FormatIPv6Address(ip, kFull)), text, {100}},
              {CALL(FormatIpv6Port(ip, 65535, kMixed)), longest, {128, 100}, "[[MEM_ERR]]:65535"},
              {CALL(FormatIPv6Address(nullptr, kFull)), "[INPUT_ERR_NULL]"},
              {CALL(FormatIpv6Port(nullptr, 80, kFull)), "[[INPUT_ERR_NULL]]:80", {128}}});
}

std::string Groups(const std::uint8_t* begin, const std::uint8_t* end) {
  std::ostringstream text;
  for (const std::uint8_t* at = begin; at < end; at += 2) {
    text << (at == begin ? "" : ":") << std::hex << (at[0] << 8 | at[1]);
  }
  return text.str();
}

// The first bytes as groups, with the first of the longest runs of zero bytes shortened.
std::string Compressed(const Bytes& bytes, std::ptrdiff_t count) {
  const std::uint8_t* const begin = bytes.data();
  const std::uint8_t* const end = begin + count;
  auto length = count + 1;
  const std::uint8_t* run = end;
  while (run == end) run = std::search_n(begin, end, --length, 0);
  const std::uint8_t* const zeros = begin + (run - begin + 1) / 2 * 2;  // whole groups
  const std::uint8_t* const rest = begin + (run - begin + length) / 2 * 2;
  return zeros < rest ? Groups(begin, zeros) + "::" + Groups(rest, end) : Groups(begin, end);
}

TEST(Ipv6Text, ZeroRunsAndRoundTrips) {
  std::mt19937 random(3);
  CQXDataFormat format;
  for (std::size_t round = 0; round < 40000; ++round, format.Reset()) {
    const auto zeros = random() & random();
    const std::size_t bytes_a_bit = round % 2 + 1;  // single zeros, or whole groups of them
    Bytes bytes{};
    for (std::size_t i = 0; i < 16; ++i) {
      const bool is_zero = (zeros >> i / bytes_a_bit & 1) != 0;
      bytes[i] = is_zero ? std::uint8_t{0} : static_cast<std::uint8_t>(1 + random() % 255);
    }
    char area[INET6_ADDRSTRLEN];
    const std::string peer = inet_ntop(AF_INET6, bytes.data(), area, sizeof area);
    const std::string tail = inet_ntop(AF_INET, &bytes[12], area, sizeof area);
    const std::string head = Compressed(bytes, 12);
    const std::string compressed = Compressed(bytes, 16);
    const std::string embedded = head + (head.ends_with("::") ? "" : ":") + tail;
    const std::pair<int, std::string> texts[] = {{0, compressed}, {2, compressed}, {3, embedded}};
    for (const auto& [type, text] : texts) {
      const auto form = QXFMT_IPV6_TYPE(type);
      ASSERT_EQ(Utf8(format.FormatIPv6Address(bytes.data(), form)), text);
      Bytes read{};
      ASSERT_EQ(QXFMT_GetIPv6Address(AtPageEnd(Wide(text)), read.data()), 1) << text;
      ASSERT_EQ(read, bytes) << text;
    }
    // The peer writes a lone zero group out, and some addresses with a dotted tail.
    if (bytes_a_bit == 2 && peer.find("::") != peer.npos && peer.find('.') == peer.npos) {
      ASSERT_EQ(compressed, peer);
    }
  }
}

// What goes beyond the peer, written its way. "!" is no part of an address.
std::string WrittenItsWay(std::string text) {
  static const std::pair<std::regex, const char*> rules[] = {
      // No blank stands between two colons.
      {std::regex(": +:"), "!"},
      // A last colon counts for nothing if a blank follows it and a "::" stands before.
      {std::regex("^([^.]*::[^.]*[^:.]): +$"), "$1"},
      // A dotted part without digits is 0: the first one, or one with a blank in it.
      {std::regex("(^|:|\\. ) *(?=\\.)"), "$1 0"},
      // Other blanks count for nothing.
      {std::regex(" +"), ""},
      // Dotted parts may have leading zeros.
      {std::regex("([:.])(00(?=\\d(\\.|$))|0(?=\\d\\d?(\\.|$)))"), "$1"}};
  text.erase(0, text.find_first_not_of(' '));
  if (text.size() > 99) return "!";
  for (const auto& [beyond, own] : rules) text = std::regex_replace(text, beyond, own);
  return text;
}

TEST(Ipv6Parse, AgreesWithAPeerOnMutatedTexts) {
  const auto check = [](const std::string& peer, WideText text) {
    constexpr Bytes kUntouched = {0xA5};
    Bytes meaning{};
    Bytes read = kUntouched;
    const int valid = inet_pton(AF_INET6, WrittenItsWay(peer).c_str(), meaning.data());
    EXPECT_EQ(QXFMT_GetIPv6Address(text, read.data()), valid) << peer;
    EXPECT_EQ(read, valid == 1 ? meaning : kUntouched) << peer;
    EXPECT_EQ(QXFMT_IsValidIPv6Address(text), valid) << peer;
  };
  const std::string seeds =
      ":: AbCd:eF01:: 0001:0010:0100:1000:: 1:2:3:4:5:6:7:8 1:2:3:4:5:6:7:: ::1:2:3:4:5:6:7 "
      "1:2:3::5:6:7:8 ::1:2:3:4:5:6:7:8 1::2:1.2.3.4 1:2:3:4:5:6:100.20.3.255 abcd:ef01::2345:_ "
      "1:2:3:4:5::1.2.3.4 ::9.89._199.249 ::abc:1:2 "
      "1.2.3.4 ::1.2.3.256 ::.1._.2_ _1_2::3_:_4 ::1:2:3:4:5:1.2.3.4 ::01.002.003.004 12345:: "
      "1:2:3:4:5:6:.1.2.3 1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1 __::";
  ForMutatedTexts(seeds + std::string(97, '_'), u"0127afF:::..  ;g\t\u0131\uFF11", check);
}

TEST(Ipv6Parse, ReadsNoFurtherThanTheAnswerNeeds) {
  const std::u16string texts[] = {u"::" + std::u16string(98, u' '), u"::12345", u"::12x", u":1"};
  for (const std::u16string& text : texts) {
    EXPECT_EQ(QXFMT_IsValidIPv6Address(WithoutTerminator(text)), 0) << Utf8(text);
  }
}
