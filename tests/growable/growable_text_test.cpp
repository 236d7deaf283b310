#include "support/test.h"

TEST(GrowableText, EveryFailureKeepsTheText) {
  const std::u16string long_text(1000, u'x');
  const std::u16string_view absurd(u"", SIZE_MAX / 2);  // nobody has as much, and nothing reads it
  char room[200];                                       // for one text and no growth
  std::pmr::monotonic_buffer_resource memory(room, sizeof room, std::pmr::null_memory_resource());
  GrowableText text(&memory);
  text.assign(u"kept");
  EXPECT_EQ(StatusOf([&] { GrowableText refused(&memory); }), 0x8007000E);
  EXPECT_EQ(StatusOf([&] { text.assign(long_text); }), 0x8007000E);
  EXPECT_EQ(StatusOf([&] { text.append_format(u"%s%s", long_text, u"y"); }), 0x8007000E);
  EXPECT_EQ(StatusOf([&] { text.assign(absurd); }), 0x8007000E);
  EXPECT_EQ(StatusOf([&] { text.append(absurd); }), 0x8007000E);
  EXPECT_EQ(StatusOf([] { GrowableText without_memory(nullptr); }), 0x80004005);
  EXPECT_EQ(StatusOf([&] { text.append(WideText{nullptr}); }), 0x80070057);
  EXPECT_EQ(StatusOf([&] { text.append_format(nullptr); }), 0x80070057);
  EXPECT_EQ(StatusOf([&] { text.resize(text.capacity() + 1); }), 0x80070057);
  EXPECT_EQ(StatusOf([&] { text.reserve(SIZE_MAX); }), 0x80070057);
  EXPECT_EQ(Utf8(text), "kept");
}

TEST(GrowableText, DoublesItsRoom) {
  const std::pair<std::size_t, std::size_t> rows[] = {
      {0, 63}, {63, 63}, {64, 126}, {126, 126}, {127, 252}, {4032, 4032}, {4033, 8064}};
  std::pmr::unsynchronized_pool_resource memory;
  GrowableText text(&memory);
  for (const auto& [size, capacity] : rows) {
    while (text.size() < size) text.append(u"x");
    EXPECT_EQ(text.append(std::u16string_view()).capacity(), capacity) << size;
  }
  EXPECT_EQ(Utf8(text), std::string(4033, 'x'));
}

TEST(GrowableText, AppendsAndAssignsItself) {
  const std::string full(63, 'a');  // as much as there is room for
  GrowableText text;
  text.resize(63, u'a');
  text.append(text);
  text.append_format(u"%s-%s", text, text);
  EXPECT_EQ(Utf8(text), full + full + full + full + "-" + full + full);
  text.assign(text.c_str() + text.size() - 2).resize(4, u'b');
  EXPECT_EQ(Utf8(text.c_str()), "aabb");
}

// The memory goes along with a move. A moved-from text is empty, without room, and usable.
TEST(GrowableText, CopiesAndMoves) {
  std::pmr::unsynchronized_pool_resource memory;
  GrowableText text(&memory);
  GrowableText assigned;
  assigned = text.assign(u"text");
  const WideText place = text.c_str();
  GrowableText moved(std::move(text));
  EXPECT_EQ(moved.c_str(), place);
  EXPECT_TRUE(text.empty());
  text.append(std::u16string_view()).append_format(u"").assign(text);
  EXPECT_EQ(StatusOf([&] { text.resize(1); }), 0x80070057);
  EXPECT_EQ(Utf8(text.c_str()), "");
  EXPECT_EQ(Utf8(text.append(u"again")), "again");
  EXPECT_EQ(Utf8(GrowableText(moved)), "text");
  EXPECT_EQ(Utf8(assigned), "text");
}
