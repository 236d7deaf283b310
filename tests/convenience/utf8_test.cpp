#include <qxfmt/utf8.h>

#include <filesystem>
#include <iomanip>
#include <sstream>

#include "support/test.h"

namespace {

// Between any counts of ASCII characters, which are copied in blocks of several sizes.
void ForEachPlace(const std::u16string& text, const std::string& bytes, auto check) {
  for (std::size_t before = 0; before < 40; ++before) {
    for (std::size_t after = 0; after < 40; ++after) {
      check(std::u16string(before, u'a') + text + std::u16string(after, u'b'),
            std::string(before, 'a') + bytes + std::string(after, 'b'));
    }
  }
}

void ExpectUtf8(const std::u16string& text, const std::string& bytes) {
  ForEachPlace(text, bytes, [&](const std::u16string& wide, const std::string& narrow) {
    ASSERT_EQ(Utf8(wide), narrow);
    std::string appended = "x";
    qxfmt::AppendUtf8(appended, wide);
    ASSERT_EQ(appended, "x" + narrow);
  });
}

void ExpectUtf16(const std::string& bytes, const std::u16string& text) {
  ForEachPlace(text, bytes, [](const std::u16string& wide, const std::string& narrow) {
    ASSERT_EQ(qxfmt::Utf16(narrow), wide);
  });
}

}  // namespace

TEST(Utf8, EachCharacterBothWays) {
  std::u16string text;
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c < 0x10000) {
      text += c >= 0xD800 && c < 0xE000 ? u'-' : static_cast<char16_t>(c);
    } else {
      text += static_cast<char16_t>(0xD7C0 + (c >> 10));
      text += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
    if (c % 4096 != 4095) continue;
    const std::string bytes = std::filesystem::path(text).string();  // the standard library's
    ASSERT_EQ(Utf8(text), bytes);
    ASSERT_EQ(qxfmt::Utf16(bytes), text);
    text.clear();
  }
}

TEST(Utf8, WellFormedAndMalformed) {
  ExpectUtf8(u"\u00B5s \u65E5 \U0001F600", "\u00B5s \u65E5 \U0001F600");
  ExpectUtf8({u'\0'}, {'\0'});
  ExpectUtf8({0xD800}, "\uFFFD");
  ExpectUtf8({0xDC00}, "\uFFFD");
  ExpectUtf8({0xDC00, 0xD800}, "\uFFFD\uFFFD");
  ExpectUtf8({0xD800, 0xD83D, 0xDE00, 0xDE00}, "\uFFFD\U0001F600\uFFFD");
  // The examples of chapter 3.9 of the Unicode Standard.
  ExpectUtf16("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41",
              u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA");
  ExpectUtf16("\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41",
              u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA");
  ExpectUtf16("\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42",
              u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDA\uFFFD\uFFFDB");
  ExpectUtf16("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", u"\uFFFD\uFFFD\uFFFD\uFFFDA");
  ExpectUtf16("\xF0\x8F\xEE\x80\x80\xC2", u"\uFFFD\uFFFD\uE000\uFFFD");
}

TEST(Utf8, CutsAfterAWholeCharacter) {
  const std::u16string text = u"12\u65E5\U0001F600z";
  const std::string bytes = Utf8(text);
  const std::size_t starts[] = {0, 1, 2, 5, 9, 10};
  for (std::size_t room = 0; room < 12; ++room) {
    std::string area(14, '#');
    EXPECT_EQ(qxfmt::CopyUtf8(text, area.data(), room), bytes.size());
    std::size_t end = 0;
    for (const std::size_t start : starts) end = start < room ? start : end;
    EXPECT_EQ(area, room == 0 ? std::string(14, '#')
                              : bytes.substr(0, end) + '\0' + std::string(13 - end, '#'));
  }
  std::u16string wide(9, u'#');
  EXPECT_EQ(qxfmt::CopyUtf16(bytes, wide.data(), 5), text.size());
  EXPECT_EQ(wide, std::u16string(u"12\u65E5") + u'\0' + u"#####");
}

TEST(Utf8, InStreamsAndStrings) {
  std::ostringstream stream;
  stream << std::setw(8) << qxfmt::Utf8(u"1.5 KB") << '|' << qxfmt::Utf8(std::u16string(400, u'x'));
  EXPECT_EQ(stream.str(), "  1.5 KB|" + std::string(400, 'x'));
  std::string line = qxfmt::Utf8(u"a");
  line += qxfmt::Utf8(u"b");
  EXPECT_EQ(line + qxfmt::Utf8(u"c").c_str(), "abc");
}
