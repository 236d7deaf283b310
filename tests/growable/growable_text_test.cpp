#include <cstring>
#include <map>

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
  EXPECT_EQ(StatusOf([&] { text.reserve(text.max_size() + 1); }), 0x80070057);
  EXPECT_EQ(StatusOf([&] { text.reserve(text.max_size()); }), 0x8007000E);
  EXPECT_EQ(Utf8(text), "kept");
  EXPECT_STREQ(StatusException(1).what(), "text operation failed");
}

// Logs what it is asked for, and wants it back as it was given.
struct LoggedMemory : std::pmr::memory_resource {
  Sizes asked;
  std::map<void*, std::size_t> given;

  ~LoggedMemory() override { EXPECT_TRUE(given.empty()); }
  void* do_allocate(std::size_t bytes, std::size_t /*alignment*/) override {
    asked.push_back(static_cast<std::uint32_t>(bytes));
    void* const memory = std::memset(::operator new(bytes), 0xCD, bytes);
    return given.emplace(memory, bytes).first->first;
  }
  void do_deallocate(void* memory, std::size_t bytes, std::size_t /*alignment*/) override {
    EXPECT_EQ(given.at(memory), bytes);
    given.erase(memory);
    ::operator delete(memory);
  }
  bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
};

TEST(GrowableText, DoublesItsRoom) {
  LoggedMemory memory;
  GrowableText text(&memory);
  for (int i = 0; i < 4033; ++i) text.append(u"x").append(std::u16string_view());
  EXPECT_EQ(memory.asked, (Sizes{128, 254, 506, 1010, 2018, 4034, 8066, 16130}));
  for (const std::size_t capacity : {8063U, 8064U, 8065U}) text.reserve(capacity);
  EXPECT_EQ(memory.asked.back(), 16132U);
  EXPECT_EQ(memory.asked.size(), 9U);
  EXPECT_EQ(Utf8(text.c_str()), std::string(4033, 'x'));
  EXPECT_EQ(Utf8(GrowableText(&memory).c_str()), "");
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
  text.resize(3);
  EXPECT_EQ(Utf8(text.c_str()), "aab");
}

// The memory goes along with a move, unless it lies in the text itself. A moved-from text is empty,
// without room, and usable.
TEST(GrowableText, CopiesAndMoves) {
  LoggedMemory memory;
  std::pmr::memory_resource* const heap = std::pmr::new_delete_resource();
  const std::tuple<std::pmr::memory_resource*, std::u16string, bool> rows[] = {
      {&memory, u"text", true},
      {heap, std::u16string(63, u'x'), false},
      {heap, std::u16string(64, u'x'), true}};
  for (const auto& [resource, units, memory_moves] : rows) {
    GrowableText text(resource);
    GrowableText assigned;
    assigned = text.assign(units);
    const WideText place = text.c_str();
    const auto moved = std::make_unique<GrowableText>(std::move(text));
    EXPECT_EQ(moved->c_str() == place, memory_moves);
    EXPECT_TRUE(text.empty());
    text.append(std::u16string_view()).append_format(u"").assign(text);
    EXPECT_EQ(StatusOf([&] { text.resize(1); }), 0x80070057);
    EXPECT_EQ(Utf8(text.c_str()), "");
    EXPECT_EQ(Utf8(text.append(u"again")), "again");
    EXPECT_EQ(GrowableText(*moved).c_str(), units);
    EXPECT_EQ(assigned.c_str(), units);
    EXPECT_EQ(moved->c_str(), units);
    moved->clear();
    EXPECT_EQ(Utf8(moved->c_str()), "");
  }
  EXPECT_EQ(memory.asked, (Sizes{128, 128}));
}
