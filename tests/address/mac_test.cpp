#include <regex>

#include "support/hostile_text.h"
#include "support/test.h"

namespace qxfmt::test {

TEST(Mac, Octets) {
  constexpr std::uint8_t kOctets[] = {0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E, 0x6F, 0x70};
  ArenaScript arena;
  CQXDataFormat format;
  EXPECT_EQ(Utf8(format.FormatMacAddress(0xFFFF5E4D3C2B1A00)), "00:1A:2B:3C:4D:5E");
  for (std::int32_t count = -1; count <= 9; ++count) {
    const bool told = count >= 1 && count <= 8;
    const std::vector<std::uint8_t> octets(kOctets, kOctets + (told ? count : 0));  // read no more
    EXPECT_EQ(Utf8(format.FormatMacAddress(octets.data(), count)),
              told ? std::string("00:1A:2B:3C:4D:5E:6F:70", 3 * octets.size() - 1) : "???");
    EXPECT_EQ(QXFMT_GetMacAddress(count == 6 ? octets.data() : kOctets, count),
              count == 6 ? 0x5E4D3C2B1A00U : 0x706F5E4D3C2B1A00U);
  }
  arena.RefuseAll();
  EXPECT_EQ(Utf8(format.FormatMacAddress(0)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatMacAddress(kOctets, 9)), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatIPXAddress(nullptr, -1)), "NOIMPLEMENT");
  EXPECT_EQ(arena.TakeSizes(), (Sizes{50, 64, 64, 64, 64, 64, 64, 64, 64, 64, 64, 64, 50, 64}));
  EXPECT_EQ(QXFMT_IsValidMacAddress(UINT64_MAX) + QXFMT_IsValidMacAddress(nullptr, 0), 2);
}

TEST(Mac, PairsTheDigitsOfMutatedTextsInOrder) {
  const std::regex accepted("(?=.{12,17}$)([:-]*[[:xdigit:]]){12}[:-]*"), no_digit("[^[:xdigit:]]");
  const auto check = [&](std::string peer, WideText text) {
    const std::string pair = Utf8(std::u16string_view(text != nullptr ? text : u"").substr(0, 2));
    const std::string hex = "0" + std::regex_replace(pair, no_digit, "");
    EXPECT_EQ(QXFMT_GetHexValue(text), std::stoi(hex, nullptr, 16)) << peer;
    const bool valid = std::regex_match(peer, accepted);
    std::erase_if(peer, [](char c) { return c == ':' || c == '-'; });
    EXPECT_EQ(QXFMT_IsValidMacAddress(text), valid) << peer;
    for (const char16_t separator : u":-.a0F") {
      std::string digits = peer;
      std::erase(digits, static_cast<char>(separator));
      std::uint64_t address = valid ? 0 : UINT64_MAX;
      for (std::size_t i = 0; valid && i < digits.size(); i += 2) {
        address |= std::stoull(digits.substr(i, 2), nullptr, 16) << (4 * i);
      }
      EXPECT_EQ(QXFMT_GetMacAddress(text, separator), address) << peer;
    }
  };
  ForMutatedTexts(R"(
      00:1a:2B-3c:4D:5e 001122334455 0011-2233-4455 0:01:12:23:34:455 ff-FF-ff-FF-ff-FF 1 Gg
      00:11:22:33:4455: :::::001122334455 001122334455::::- :00:11:22:33:44:55 00.11.22.33.44.55)",
                  u"0aF1::--gG@ \u0131\uFF11", check);
}

}  // namespace qxfmt::test
