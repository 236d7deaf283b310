#include <regex>

#include "support/hostile_text.h"

constexpr std::uint8_t kOctets[] = {0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E, 0x6F, 0x70};
constexpr std::uint64_t kAllOctets = 0x706F5E4D3C2B1A00;

TEST(Mac, Octets) {
  ExpectRows({{CALL(FormatMacAddress(kAllOctets)), "00:1A:2B:3C:4D:5E", {50}},
              {CALL(FormatIPXAddress(nullptr, -1)), "NOIMPLEMENT"}});
  for (const std::int32_t count : {1, 2, 3, 4, 5, 6, 7, 8}) {
    const std::vector<std::uint8_t> octets(kOctets, kOctets + count);  // and nothing after them
    const std::string text("00:1A:2B:3C:4D:5E:6F:70", 3 * octets.size() - 1);
    ExpectRows({{CALL(FormatMacAddress(octets.data(), count)), text, {64}}});
  }
  for (const std::int32_t count : {-1, 0, 9}) {
    ExpectRows({{CALL(FormatMacAddress(nullptr, count)), "???", {64}}});
  }
  for (const std::int32_t count : {-1, 0, 5, 7, 8})
    EXPECT_EQ(QXFMT_GetMacAddress(kOctets, count), kAllOctets);
  const std::vector<std::uint8_t> six(kOctets, kOctets + 6);
  EXPECT_EQ(QXFMT_GetMacAddress(six.data(), 6), 0x5E4D3C2B1A00U);
  EXPECT_EQ(QXFMT_IsValidMacAddress(UINT64_MAX), 1);
  EXPECT_EQ(QXFMT_IsValidMacAddress(nullptr, 0), 1);
}

TEST(Mac, ReadsNoFurtherThanTheAnswerNeeds) {
  for (const auto text : {u"00:11:22:33:44:55:", u"0011223344556", u"00:11x", u"x"}) {
    EXPECT_EQ(QXFMT_IsValidMacAddress(WithoutTerminator(text)), 0) << Utf8(text);
  }
  EXPECT_EQ(QXFMT_GetHexValue(WithoutTerminator(u"1F")), 0x1F);
}

TEST(Mac, PairsTheDigitsOfMutatedTextsInOrder) {
  const std::regex accepted("(?=.{12,17}$)([:-]*[[:xdigit:]]){12}[:-]*");
  const std::regex no_digit("[^[:xdigit:]]");
  const auto check = [&](const std::string& peer, WideText text) {
    const std::u16string_view pair = std::u16string_view(text != nullptr ? text : u"").substr(0, 2);
    const std::string pair_digits = "0" + std::regex_replace(std::string(Utf8(pair)), no_digit, "");
    EXPECT_EQ(QXFMT_GetHexValue(text), std::stoi(pair_digits, nullptr, 16)) << peer;
    const bool is_valid = std::regex_match(peer, accepted);
    EXPECT_EQ(QXFMT_IsValidMacAddress(text), is_valid ? 1 : 0) << peer;

    // A separator that is a digit is passed over as well.
    for (const char separator : {':', '-', '.', 'a', '0', 'F'}) {
      std::string digits = peer;
      std::erase_if(digits, [=](char c) { return c == ':' || c == '-' || c == separator; });
      std::uint64_t address = is_valid ? 0 : UINT64_MAX;
      for (std::size_t i = 0; is_valid && i < digits.size(); i += 2) {
        address |= std::stoull(digits.substr(i, 2), nullptr, 16) << (4 * i);
      }
      EXPECT_EQ(QXFMT_GetMacAddress(text, static_cast<char16_t>(separator)), address) << peer;
    }
  };
  ForMutatedTexts(
      "00:1a:2B-3c:4D:5e 01:23:45:67:89:AB 001122334455 0011-2233-4455 0:01:12:23:34:455 1 Gg "
      "ff-FF-ff-FF-ff-FF 00:11:22:33:4455: :::::001122334455 001122334455::::- "
      ":00:11:22:33:44:55 00.11.22.33.44.55",
      u"0aF1::--gG@ \u0131\uFF11", check);
}
