#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/hostile_text.h"
#include "support/scripted_arena.h"
#include "support/text.h"

namespace qxfmt::test {
namespace {

constexpr std::uint8_t kOctets[] = {0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E, 0x6F, 0x70};
constexpr std::uint64_t kRefused = ~std::uint64_t{0};

TEST(Mac, Prints) {
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatMacAddress(0xFFFF5E4D3C2B1A00)), "00:1A:2B:3C:4D:5E");
  for (const std::size_t count : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U}) {
    const std::vector<std::uint8_t> octets(kOctets, kOctets + count);  // no more may be read
    EXPECT_EQ(Utf8(format.FormatMacAddress(octets.data(), static_cast<std::int32_t>(count))),
              std::string("00:1A:2B:3C:4D:5E:6F:70").substr(0, 3 * count - 1));
  }
  for (const int bad : {0, 9, -1}) EXPECT_EQ(Utf8(format.FormatMacAddress(nullptr, bad)), "???");
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatMacAddress(0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatMacAddress(kOctets, 9)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIPXAddress(nullptr, -1)), "NOIMPLEMENT");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{50, 64, 64, 64, 64, 64, 64, 64, 64, 64, 64, 64, 50, 64}));
}

TEST(Mac, HexValue) {
  const std::vector<std::string> rows = Words(
      "ff 255 FF 255 fF 255 Ab 171 9 9 a 10 F 15 123 18 1G 1 G1 1 GG 0 x5 5 0x 0 -1 1 : 0 / 0");
  for (auto row = rows.begin(); row != rows.end(); row += 2) {
    EXPECT_EQ(std::to_string(QXFMT_GetHexValue(AtPageEnd(*row))), row[1]) << *row;
  }
  EXPECT_EQ(QXFMT_GetHexValue(u"\u0131\uFF11") + QXFMT_GetHexValue(u"") + QXFMT_GetHexValue({}), 0);
}

TEST(Mac, ReadsOctetsAndText) {
  const std::vector<std::uint8_t> six(kOctets, kOctets + 6);
  EXPECT_EQ(QXFMT_GetMacAddress(six.data(), 6), 0x5E4D3C2B1A00U);
  for (const std::int32_t count : {8, 4, 0, 7, -6}) {
    EXPECT_EQ(QXFMT_GetMacAddress(kOctets, count), 0x706F5E4D3C2B1A00U);
  }
  EXPECT_EQ(QXFMT_IsValidMacAddress(kRefused) + QXFMT_IsValidMacAddress(nullptr, 0), 2);
  for (const std::string& text : Words(R"(
      00:11:22:33:44:55 001122334455 0011-2233-4455 001:122:334:455 0:01:12:23:34:455
      00:11:22:33:4455: :::::001122334455 001122334455::::-)")) {
    EXPECT_EQ(QXFMT_GetMacAddress(AtPageEnd(text), u'-'), 0x554433221100U) << text;
  }
  EXPECT_EQ(QXFMT_GetMacAddress(u"ff-FF-ff-FF-ff-FF", u':'), 0xFFFFFFFFFFFFU);
  for (const char16_t* text : {u"", u":00:11:22:33:44:55", u"00.11.22.33.44.55", WideText{}}) {
    EXPECT_EQ(QXFMT_GetMacAddress(text, u'.'), kRefused);
  }
}

TEST(Mac, PairsTheDigitsOfMutatedTextsInOrder) {
  std::size_t turn = 0;
  const auto check = [&](const std::u16string& text) {
    const char16_t separator = u":-.a0F"[turn++ % 7];
    std::string digits = Narrow(text);
    std::erase_if(digits, [](char c) { return c == ':' || c == '-'; });
    const bool valid = text.size() <= 17 && digits.size() == 12 &&
                       digits.find_first_not_of("0123456789abcdefABCDEF") == digits.npos;
    std::erase(digits, static_cast<char>(separator));
    std::uint64_t address = valid ? 0 : kRefused;
    for (std::size_t i = 0; valid && i < digits.size(); i += 2) {
      address |= std::stoull(digits.substr(i, 2), nullptr, 16) << (4 * i);
    }
    EXPECT_EQ(QXFMT_GetMacAddress(AtPageEnd(text), separator), address) << Narrow(text);
    EXPECT_EQ(QXFMT_IsValidMacAddress(AtPageEnd(text)), valid) << Narrow(text);
  };
  ForMutatedTexts(Words("00:1a:2B-3c:4D:5e 0011-2233-4455 0:01:12:23:34:455"),
                  u"0aF1::--g \u0131\uFF11", 20000, check);
}

}  // namespace
}  // namespace qxfmt::test
