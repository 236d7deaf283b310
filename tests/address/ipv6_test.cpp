#include <arpa/inet.h>

#include <array>
#include <cstring>
#include <regex>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/hostile_text.h"
#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

using Bytes = std::array<std::uint8_t, 16>;

// Of a text that inet_pton reads.
Bytes BytesOf(const std::string& text) {
  Bytes bytes{};
  EXPECT_EQ(inet_pton(AF_INET6, text.c_str(), bytes.data()), 1) << text;
  return bytes;
}

constexpr auto kCompressed = QXFMT_IPV6_COMPRESSED;
constexpr auto kFull = QXFMT_IPV6_FULL;
constexpr auto kEmbedded = QXFMT_IPV6_EMBEDDED_V4;

TEST(Ipv6Text, Forms) {
  // Address, type, text.
  const std::vector<std::string> rows = Words(R"(
      :: 0 :: :: 1 0000:0000:0000:0000:0000:0000:0000:0000 :: 3 ::0.0.0.0 1:: 3 1::0.0.0.0
      2001:db8::1 2 2001:db8::1 2001:db8::1 -1 2001:db8::1 2001:db8::1 3 2001:db8::0.0.0.1
      2001:db8::1 1 2001:0db8:0000:0000:0000:0000:0000:0001 1:2:3:4:5:0:1.2.3.4 3 1:2:3:4:5::1.2.3.4
      1:2:3:4:5:6:: 3 1:2:3:4:5:6:0.0.0.0 0:1100:0:0:11:0:0:0 0 0:1100::11:0:0:0
      1100:11:0:1111:1111:1111:1111:1111 0 1100:11:0:1111:1111:1111:1111:1111
      1:0:2:0:0:3:0:5 0 1:0:2::3:0:5 2001:0:0:100:0:0:1:0 0 2001:0:0:100::1:0
      abcd:abcd:abcd:abcd:abcd:abcd:255.255.255.255 3 abcd:abcd:abcd:abcd:abcd:abcd:255.255.255.255
      )");
  ArenaScript arena;
  CQXDataFormat format;
  for (auto row = rows.begin(); row != rows.end(); row += 3) {
    const Bytes bytes = BytesOf(*row);
    const auto type = static_cast<QXFMT_IPV6_TYPE>(std::stoi(row[1]));
    EXPECT_EQ(Utf8(format.FormatIPv6Address(bytes.data(), type)), row[2]);
    EXPECT_EQ(Utf8(format.FormatIpv6Port(bytes.data(), 65535, type)), "[" + row[2] + "]:65535");
    EXPECT_EQ(arena.TakeSizes(), (Sizes{100, 128, 100}));
  }
  EXPECT_EQ(Utf8(format.FormatIPv6Address(nullptr, kFull)), "[INPUT_ERR_NULL]");
  EXPECT_EQ(arena.TakeSizes(), Sizes{});
  EXPECT_EQ(Utf8(format.FormatIpv6Port(nullptr, 80, kFull)), "[[INPUT_ERR_NULL]]:80");
  EXPECT_EQ(arena.TakeSizes(), Sizes{128});
  arena.Refuse(rows.size() + 2);
  EXPECT_EQ(Utf8(format.FormatIpv6Port(Bytes{}.data(), 80, kFull)), "[[MEM_ERR]]:80");
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatIPv6Address(Bytes{}.data(), kFull)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIpv6Port(nullptr, 80, kFull)), "[MEM_ERR]");
}

std::string Groups(const Bytes& bytes, std::size_t begin, std::size_t end) {
  std::string text;
  for (std::size_t i = begin; i < end; i += 2) {
    char group[8];
    std::snprintf(group, sizeof group, i == begin ? "%x" : ":%x", bytes[i] << 8 | bytes[i + 1]);
    text += group;
  }
  return text;
}

// Tries every stretch of zero bytes.
std::string Compressed(const Bytes& bytes, std::size_t count) {
  std::size_t begin = 0;
  std::size_t end = 0;
  for (std::size_t b = 0; b < count; ++b) {
    for (std::size_t e = b; e < count && bytes[e] == 0; ++e) {
      if (e + 1 - b > end - begin) begin = b, end = e + 1;
    }
  }
  begin += begin % 2;
  end -= end % 2;
  if (end < begin + 2) return Groups(bytes, 0, count);
  return Groups(bytes, 0, begin) + "::" + Groups(bytes, end, count);
}

TEST(Ipv6Text, ZeroRunsAndRoundTrips) {
  std::mt19937 random(3);
  for (int i = 0; i < 40000; ++i) {
    Bytes bytes{};
    const auto filled = random() & (i % 2 == 0 ? random() : ~0U);
    const bool whole_groups = i % 4 < 2;
    for (std::size_t k = 0; k < 16; ++k) {
      const bool fill = (filled >> (whole_groups ? k / 2 : k) & 1) != 0;
      bytes[k] = static_cast<std::uint8_t>(fill ? 1 + random() % 255 : 0);
    }
    CQXDataFormat format;
    const std::string text = Utf8(format.FormatIPv6Address(bytes.data(), kCompressed));
    ASSERT_EQ(text, Compressed(bytes, 16));
    const std::string embedded = Utf8(format.FormatIPv6Address(bytes.data(), kEmbedded));
    ASSERT_EQ(embedded.rfind(Compressed(bytes, 12), 0), 0U) << embedded;
    char peer[INET6_ADDRSTRLEN];
    inet_ntop(AF_INET6, bytes.data(), peer, sizeof peer);
    // The peer writes a lone zero group out, and some addresses with a dotted tail.
    const bool comparable = std::strchr(peer, '.') == nullptr &&
                            (std::strstr(peer, "::") != nullptr || text.find("::") == text.npos);
    ASSERT_TRUE(!whole_groups || !comparable || text == peer) << text << " " << peer;
    for (const QXFMT_IPV6_TYPE type : {kCompressed, kFull, kEmbedded}) {
      Bytes read{};
      const std::u16string written = format.FormatIPv6Address(bytes.data(), type);
      ASSERT_EQ(QXFMT_GetIPv6Address(AtPageEnd(written), read.data()), 1) << Narrow(written);
      ASSERT_EQ(read, bytes) << Narrow(written);
    }
  }
}

// What the text means to inet_pton, once all that goes beyond it is written its way. Empty for a
// text that has no meaning whatever inet_pton says.
std::string PeerText(const std::u16string& text) {
  static const std::regex gap_with_blank(": +:"), final_colon("([^:]): +$"),
      empty_first("(^|:) *\\."), empty_part("\\. +\\."), leading_zero("([:.])0(\\d{1,2})(?=\\.|$)");
  std::string peer = Narrow(text);
  peer.erase(0, peer.find_first_not_of(' '));
  if (peer.size() > 99 || std::regex_search(peer, gap_with_blank)) return "";
  const bool has_dot = peer.find('.') != peer.npos;
  if (!has_dot && peer.find("::") != peer.npos) peer = std::regex_replace(peer, final_colon, "$1");
  peer = std::regex_replace(peer, empty_first, "$1 0.");
  for (int i = 0; i < 2; ++i) peer = std::regex_replace(peer, empty_part, ".0.");
  std::erase(peer, ' ');
  for (int i = 0; i < 2 && has_dot; ++i) peer = std::regex_replace(peer, leading_zero, "$1$2");
  return peer;
}

void ExpectRead(const std::u16string& text, int valid, const Bytes& meaning) {
  Bytes untouched{};
  untouched.fill(0xA5);
  Bytes read = untouched;
  EXPECT_EQ(QXFMT_GetIPv6Address(AtPageEnd(text), read.data()), valid) << Narrow(text);
  EXPECT_EQ(read, valid != 0 ? meaning : untouched) << Narrow(text);
  EXPECT_EQ(QXFMT_IsValidIPv6Address(AtPageEnd(text)), valid) << Narrow(text);
}

std::u16string Padded(std::size_t before, std::u16string text, std::size_t behind) {
  return text.insert(0, before, u' ').append(behind, u' ');
}

TEST(Ipv6Parse, AcceptsMoreThanTheRfc) {
  // Text and meaning.
  const std::vector<std::string> rows = Words(R"(
      ::001.002.003.004 ::1.2.3.4 ::010.0.0.0 ::10.0.0.0 ::.1.2.3 ::0.1.2.3 ::1._.2.3 ::1.0.2.3
      1:2:3:4:5:6:.1.2.3 1:2:3:4:5:6:0.1.2.3 ::1:_ ::1 1::2:_ 1::2 1_2_3_4:: 1234:: 1_::_2 1::2
      __::1__ ::1 1:_2:_3:_4:_5:_6:_7:_8 1:2:3:4:5:6:7:8 ::1._2_.3.4 ::1.2.3.4)");
  for (auto row = rows.begin(); row != rows.end(); row += 2) {
    ExpectRead(Wide(*row), 1, BytesOf(row[1]));
  }
  for (const char* text : {"::", "1:2:3:4:5:6:7:8"}) {
    const std::size_t blanks = 99 - std::strlen(text);
    ExpectRead(Padded(1000, Wide(text), blanks), 1, BytesOf(text));
    ExpectRead(Padded(0, Wide(text), blanks + 1), 0, {});
  }
}

TEST(Ipv6Parse, Refused) {
  for (const std::string& text : Words(R"(
      ___ : ::: 1:2:3:4:5:6:7:8:: ::1:2:3:4:5:6:7:8 1:2:3:4::5:6:7:8 1:2:3:4:5:6:7::8 1:2:3:4:5:6:7
      1:2:3:4:5:6:7:8:9 :1:2:3:4:5:6:7 1:2:3:4:5:6:7: 1:::2 ::1:: 1::2::3 12345:: 00001:: g::
      ::1%1 [::1] ::1/128 0x1:: 1:2:3:4:5:6::1.2.3.4 1:2:3:4:5:6:7::1.2.3.4 1:2:3:4:5:6:7:1.2.3.4
      1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1:1 1:2:3:4:5:1.2.3.4
      1.2.3.4 ::256.1.1.1 ::1.2.3.300 ::999.0.0.0 ::1.2.3 ::1.2.3.4.5 ::1.2.3.4:5 1.2.3.4:: ::1..2.3
      ::1.2.3. ::1.:2.3 ::a.2.3.4 ::1.b.3.4 ::1.2.3.d ::1234.1.1.1 ::1.1234.1.1 ::1.2.3.1234 .1.2.3
      ::1.2.3._ 1:2:3:4:5:6:7:8:_ 1_2_3_4_5:: 1:_:2 :_: ::_:1 ::1.2.3.4:_)")) {
    ExpectRead(Wide(text), 0, {});
  }
  for (const char16_t* text : {u"", u"::\t1", u"::\uFF11", u"::\u0131", u"::1.2.3\u012E4"}) {
    ExpectRead(text, 0, {});
  }
  EXPECT_EQ(QXFMT_IsValidIPv6Address(nullptr), 0);
}

TEST(Ipv6Parse, AgreesWithAPeerOnMutatedTexts) {
  int accepted = 0;
  const auto check = [&](const std::u16string& text) {
    Bytes meaning{};
    const int valid = inet_pton(AF_INET6, PeerText(text).c_str(), meaning.data());
    ExpectRead(text, valid, meaning);
    accepted += valid;
    // A blank keeps a text from the quick path.
    if (text.size() < 99 && !text.empty() && text.back() != u':' && text.back() != u'.') {
      ExpectRead(text + u' ', valid, meaning);
    }
  };
  std::vector<std::string> seeds = Words(R"(
      :: ::1 1:: AbCd:eF01:: 0001:0010:0100:1000:: 1:2:3:4:5:6:7:8 1:2:3:4:5:6:7:: ::1:2:3:4:5:6:7
      1:2:3::5:6:7:8 2001:db8::1 1::2:1.2.3.4 1:2:3:4:5:6:100.20.3.255 abcd:ef01::2345:_
      1:2:3:4:5::1.2.3.4 ::.1._.2_ _1_2::3_:_4 ::1:2:3:4:5:1.2.3.4)");
  seeds.push_back(Narrow(Padded(0, u"::", 95)));
  ForMutatedTexts(seeds, u"0127afF:::..  g\u0131\uFF11", 60000, check);
  EXPECT_GT(accepted, 10000);
}

}  // namespace
}  // namespace qxfmt::test
