#include "support/test.h"

// The text that the format gives, or "refused".
template <typename... Arguments>
std::string Formatted(WideText format, const Arguments&... arguments) {
  GrowableText text;
  try {
    return Utf8(text.append_format(format, arguments...));
  } catch (const StatusException& failure) {
    EXPECT_EQ(failure.status(), StatusException::kFailed) << Utf8(format);
    EXPECT_TRUE(text.empty()) << Utf8(format);
    return "refused";
  }
}

TEST(AppendFormat, Conversions) {
  EXPECT_EQ(Formatted(u"%hd %I64d", std::int8_t{-1}, INT64_MIN), "-1 -9223372036854775808");
  EXPECT_EQ(Formatted(u"%01d %ld %I64d", 12, 3, INT64_MAX), "12 3 9223372036854775807");
  EXPECT_EQ(Formatted(u"%u %hu %I64x", 7U, std::uint8_t{8}, UINT64_MAX), "7 8 ffffffffffffffff");
  EXPECT_EQ(Formatted(u"%02X %04u %03d %02d", std::uint8_t{10}, 42U, -4, 123), "0A 0042 -04 123");
  EXPECT_EQ(Formatted(u"%0999d", -1), "-" + std::string(997, '0') + "1");
  EXPECT_EQ(Formatted(u"%s%s%%|%s", u"分", std::u16string_view(u"ab"), u""), "分ab%|");
  EXPECT_EQ(Formatted(u"%f %.0f %.1f %.2f", 1.5, 2.5F, 0.25, -0.005), "1.500000 2 0.2 -0.01");
  EXPECT_EQ(Formatted(u"%.32f", -DBL_MAX), Exact(-DBL_MAX, 32));  // the longest
  EXPECT_EQ(Formatted(u"%.32f", std::nan("")), "nan");
}

template <typename... Arguments>
void ExpectRefused(const std::vector<WideText>& formats, const Arguments&... arguments) {
  for (const WideText format : formats) {
    EXPECT_EQ(Formatted(format, arguments...), "refused") << Utf8(format);
  }
}

TEST(AppendFormat, Refusals) {
  ExpectRefused({u"%1s", u"%05s", u"%0s", u"%.2s", u"%hs", u"%ls", u"%I64s", u"%d"}, u"text");
  ExpectRefused({u"%08.2f", u"%1.2f", u"%0f", u"%lf", u"%.33f", u"%.1000f", u"%.*f", u"%u"}, 1.5);
  ExpectRefused({u"%I65d", u"%I74d", u"%i64d", u"%1d", u"%0d", u"%.2d", u"%01000d", u"%0:d", u"%c",
                 u"%", u"%hd"},
                1);
  ExpectRefused({u"%u", u"%x", u"%s", u"%f"}, 1);
  ExpectRefused({u"%d", u"%ld", u"%hu"}, 1U);
  ExpectRefused({u"%u", u"%I64d"}, UINT64_MAX);
  ExpectRefused({u"%d", u"%d%s%d"}, 1, u"s");
  ExpectRefused({u"%d", u"%01000d", u"%.1000f"});
  ExpectRefused({u"%s"}, WideText{nullptr});
}

// A text may be its own format: in place, where the output overwrites the format's terminator, and
// where it grows.
TEST(AppendFormat, FormatMayBeTheTextItself) {
  for (const std::size_t percents : {0U, 18U, 50U}) {
    const std::u16string format = std::u16string(2 * percents, u'%') + u"%d%s";
    const std::string bytes = Utf8(format);
    GrowableText text;
    text.assign(format).append_format(text.c_str(), 12345, u"ab");
    EXPECT_EQ(Utf8(text), bytes + std::string(percents, '%') + "12345ab");
    text.assign(format);
    const WideText its_end = text.c_str() + format.size() - 4;
    text.append_format(its_end, 12345, text);
    EXPECT_EQ(Utf8(text), bytes + "12345" + bytes);
  }
}
