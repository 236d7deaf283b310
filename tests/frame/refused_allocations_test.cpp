// Every allocation of every operation refused, in turn, with the real arena.

#include <map>
#include <memory_resource>
#include <random>

#include "support/operations.h"
#include "support/test.h"

namespace {

// The heap under another name, so that a short text asks for memory too.
class Strings : public std::pmr::memory_resource {
  void* do_allocate(std::size_t size, std::size_t /*alignment*/) override {
    return ::operator new(size);
  }
  void do_deallocate(void* memory, std::size_t /*size*/, std::size_t /*alignment*/) override {
    ::operator delete(memory);
  }
  bool do_is_equal(const memory_resource& other) const noexcept override { return this == &other; }
};

// How often each of these was told.
std::map<std::string, int> told = {
    {"[MEM_ERR]", 0}, {"[MEM_ERR] B", 0}, {"[[MEM_ERR]]:0", 0}, {"no memory", 0}};

// Refuses the call's allocation of this number, after so many results in the first chunk, and calls
// again. False if the call makes fewer allocations.
bool Refuse(int number, const Call& call, std::u16string_view whole, int results) {
  Formatter format;
  ResultText last = u"0.0.0.0";
  for (int i = 0; i < results; ++i) last = format.FormatIpAddress(0);
  const Outcome outcome(call, format, number);
  EXPECT_TRUE(outcome.refused ? outcome.IsToldFor(whole) : outcome.text == whole)
      << Utf8(outcome.text) << " in place of " << Utf8(whole);
  EXPECT_EQ(Utf8(Outcome(call, format).text), Utf8(whole));
  EXPECT_EQ(Utf8(last), "0.0.0.0");
  if (const auto text = told.find(Utf8(outcome.text)); text != told.end()) ++text->second;
  return outcome.refused;
}

}  // namespace

TEST(RefusedAllocations, EachOfEveryOperation) {
  constexpr int kResults = 25;  // fill the first chunk
  Strings strings;
  std::mt19937 random(1);
  for (const Operation& operation : Operations()) {
    for (int round = 0; round < 50; ++round) {
      std::vector<std::uint8_t> bytes(64);
      for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
      Arguments arguments(bytes);
      const Call call = operation.bind(arguments);
      Formatter format;
      const std::u16string whole(Outcome(call, format).text);
      SCOPED_TRACE(operation.name + (" gives " + Utf8(whole)));
      std::pmr::set_default_resource(round % 2 == 0 ? &strings : nullptr);
      const int live = heap.live;
      for (int results = 0; results <= kResults; ++results) {
        for (int number = 0; Refuse(number, call, whole, results); ++number) continue;
        ASSERT_EQ(heap.live, live);
      }
      std::pmr::set_default_resource(nullptr);
    }
  }
  for (const auto& [text, count] : told) EXPECT_GT(count, 0) << text;
}
