#include <cmath>
#include <functional>
#include <limits>
#include <memory_resource>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <qxfmt/qxfmt.h>

#include "support/text.h"

namespace qxfmt::test {
namespace {

std::uint32_t StatusOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const StatusException& failure) {
    return failure.status();
  }
  return 0;
}

TEST(GrowableText, FormatsWithTheFamily) {
  GrowableText text;
  text.append_format(u"%d %u %I64d %hd|", -5, 7U, INT64_MIN, std::int16_t{-1});
  text.append_format(u"%02X %x %08u %03d|", std::uint8_t{10}, 0xBEEFU, 42U, -4);
  text.append_format(u"%s%s%%|", u"分", std::u16string_view(u"ab"));
  text.append_format(u"%f %.0f %.2f %.32f", 1.5, 2.5F, -0.005, std::nan(""));
  EXPECT_EQ(Utf8(text),
            "-5 7 -9223372036854775808 -1|0A beef 00000042 -04|分ab%|1.500000 2 -0.01 nan");
}

TEST(GrowableText, EveryFailureKeepsTheText) {
  EXPECT_EQ(StatusOf([] { GrowableText text(nullptr); }), 0x80004005U);
  EXPECT_EQ(StatusOf([] { GrowableText text(std::pmr::null_memory_resource()); }), 0x8007000EU);
  char room[200];  // for one text and no growth
  std::pmr::monotonic_buffer_resource memory(room, sizeof room, std::pmr::null_memory_resource());
  GrowableText text(&memory);
  text.assign(u"kept");
  const std::u16string long_text(1000, u'x');
  const std::pair<std::function<void()>, std::uint32_t> rows[] = {
      {[&] { text.append_format(nullptr); }, 0x80070057},
      {[&] { text.append(WideText{nullptr}); }, 0x80070057},
      {[&] { text.resize(static_cast<std::size_t>(-1)); }, 0x80070057},
      {[&] { text.resize(text.capacity() + 1); }, 0x80070057},
      {[&] { text.reserve(static_cast<std::size_t>(-1)); }, 0x80070057},
      {[&] { text.append_format(u"%d"); }, 0x80004005},
      {[&] { text.append_format(u"%d", 1U); }, 0x80004005},
      {[&] { text.append_format(u"%u", 1); }, 0x80004005},
      {[&] { text.append_format(u"%s", WideText{nullptr}); }, 0x80004005},
      {[&] { text.append_format(u"%.33f", 1.0); }, 0x80004005},
      {[&] { text.append_format(u"%.*f", 1.0); }, 0x80004005},
      {[&] { text.append_format(u"%5d", 1); }, 0x80004005},
      {[&] { text.append_format(u"%s%s", long_text, u"y"); }, 0x8007000E},
      {[&] { text.assign(long_text); }, 0x8007000E},
      {[&] { text.reserve(64); }, 0x8007000E},
  };
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(StatusOf(rows[i].first), rows[i].second) << i;
    EXPECT_EQ(Utf8(text), "kept") << i;
  }
}

TEST(GrowableText, OwnsItsMemory) {
  std::pmr::unsynchronized_pool_resource memory;
  GrowableText text(&memory);
  text.append_format(u"%s", std::u16string(text.capacity(), u'a'));
  // From itself, in place and while it moves.
  text.append(text);
  text.append_format(u"%s-%s", text, text);
  EXPECT_EQ(text.size(), 6 * 63U + 1);
  text.assign(text.c_str() + 6 * 63 - 1);
  EXPECT_EQ(Utf8(text), "aa");
  text.resize(3, u'b');
  text.resize(2);
  EXPECT_EQ(Utf8(text.c_str()), "aa");

  GrowableText moved(std::move(text));
  EXPECT_EQ(Utf8(moved), "aa");
  EXPECT_EQ(Utf8(text), "");  // empty, and of use
  text.resize(0);
  text.append(u"again");
  GrowableText other;
  other = std::move(moved);  // another resource: a copy
  EXPECT_EQ(Utf8(other), "aa");
  text = std::move(moved);
  text = *&text;
  EXPECT_EQ(Utf8(text), "aa");
  const GrowableText copy(text);
  other.assign(u"other");
  other = copy;
  EXPECT_EQ(Utf8(other) + Utf8(copy), "aaaa");
  other.clear();
  EXPECT_TRUE(other.empty());
}

}  // namespace
}  // namespace qxfmt::test
