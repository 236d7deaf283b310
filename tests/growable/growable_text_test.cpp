#include "support/test.h"

using namespace qxfmt::test;

static void ExpectStatus(std::uint32_t status, const std::function<void()>& operation) try {
  operation();
  ADD_FAILURE() << "no exception";
} catch (const StatusException& failure) {
  EXPECT_EQ(failure.status(), status);
}

TEST(GrowableText, FormatsWithTheFamily) {
  GrowableText text;
  text.append_format(u"%d %u %I64d %hd|", -5, 7U, INT64_MIN, std::int16_t{-1});
  text.append_format(u"%02X %x %04u %03d|", std::uint8_t{10}, 0xBU, 42U, -4);
  text.append_format(u"%s%s%%|", u"分", std::u16string_view(u"ab"));
  text.append_format(u"%f %.0f %.2f %.32f", 1.5, 2.5F, -0.005, std::nan(""));
  EXPECT_EQ(Utf8(text), "-5 7 -9223372036854775808 -1|0A b 0042 -04|分ab%|1.500000 2 -0.01 nan");
}

// A text may be its own format: in place, where the output overwrites the format's terminator, and
// where it grows.
TEST(GrowableText, IsItsOwnFormat) {
  const struct {
    std::u16string format;
    std::size_t appended;  // units, given the arguments 12345 and "ab"
  } cases[] = {{u"%d%s", 7},
               {std::u16string(36, u'%') + u"%d%s", 18 + 7},
               {std::u16string(59, u'x') + u"%d%s", 59 + 7}};
  for (const auto& c : cases) {
    GrowableText text;
    text.assign(c.format);
    text.append_format(text.c_str(), 12345, u"ab");
    GrowableText apart;
    apart.append_format(c.format.c_str(), 12345, u"ab");
    EXPECT_EQ(apart.size(), c.appended);
    EXPECT_EQ(Utf8(text), Utf8(c.format) + Utf8(apart));
    text.assign(c.format);
    text.append_format(text.c_str() + c.format.size() - 4, 12345, text);  // only its end
    EXPECT_EQ(Utf8(text), Utf8(c.format) + "12345" + Utf8(c.format));
  }
}

TEST(GrowableText, EveryFailureKeepsTheText) {
  ExpectStatus(0x80004005, [] { GrowableText text(nullptr); });
  char room[200];  // for one text and no growth
  std::pmr::monotonic_buffer_resource memory(room, sizeof room, std::pmr::null_memory_resource());
  GrowableText text(&memory);
  text.assign(u"kept");
  ExpectStatus(0x80070057, [&] { text.append_format(nullptr); });
  ExpectStatus(0x80070057, [&] { text.resize(text.capacity() + 1); });
  ExpectStatus(0x80070057, [&] { text.reserve(static_cast<std::size_t>(-1)); });
  ExpectStatus(0x80004005, [&] { text.append_format(u"%s", WideText{nullptr}); });
  for (const WideText bad : {u"%d%u%f", u"%d%u%f%s%d", u"%u%u%f%s", u"%d%d%f%s", u"%5d%u%f%s",
                             u"%d%u%.33f%s", u"%d%u%.*f%s", u"%d%u%f%f", u"%d%u%f%s%"}) {
    ExpectStatus(0x80004005, [&] { text.append_format(bad, 1, 1U, 1.0, u"s"); });
  }
  const std::u16string long_text(1000, u'x');
  ExpectStatus(0x8007000E, [&] { text.append_format(u"%s%s", long_text, u"y"); });
  ExpectStatus(0x8007000E, [&] { text.assign(long_text); });
  const std::u16string_view absurd(u"", SIZE_MAX / 2);  // nobody has as much, and nothing reads it
  ExpectStatus(0x8007000E, [&] { text.assign(absurd); });
  ExpectStatus(0x8007000E, [&] { text.append(absurd); });
  EXPECT_EQ(Utf8(text), "kept");
}

TEST(GrowableText, RefusedToWordedDurations) {
  ArenaScript arena;
  CQXDataFormat format;
  std::pmr::set_default_resource(std::pmr::null_memory_resource());
  ExpectStatus(0x8007000E, [&] { format.FormatDurationSecond(0, QXFMT_DURATION_WORDS_CN); });
  ExpectStatus(0x8007000E, [&] { format.FormatDurationMSecond(0, QXFMT_DURATION_WORDS_EN); });
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(1, QXFMT_DURATION_CLOCK)), "00:00:00.001");
  EXPECT_EQ(arena.TakeSizes(), Sizes(3, 128));
  std::pmr::set_default_resource(nullptr);  // the usual one
  EXPECT_EQ(Utf8(format.FormatDurationMSecond(0, QXFMT_DURATION_WORDS_EN)), "0ms");
}

TEST(GrowableText, OwnsItsMemory) {
  std::pmr::unsynchronized_pool_resource memory;
  GrowableText text;
  text.append_format(u"%s", std::u16string(text.capacity(), u'a'));
  // From itself, in place and while it moves.
  text.append(text);
  text.append_format(u"%s-%s", text, text);
  EXPECT_EQ(std::min(text.size(), text.capacity()), 6 * 63U + 1);
  text.assign(text.c_str() + 6 * 63 - 1);
  text.resize(3, u'b');
  EXPECT_EQ(Utf8(text.c_str()), "aab");
  text.resize(2);

  GrowableText moved(std::move(text));
  EXPECT_EQ(Utf8(moved) + Utf8(text), "aa");
  GrowableText other(&memory);
  other = std::move(moved);  // another resource: a copy
  text = std::move(moved);
  EXPECT_EQ(Utf8(other) + Utf8(text), "aaaa");
  other.clear();
  EXPECT_EQ(Utf8(other) + Utf8(GrowableText(text)), "aa");
}
