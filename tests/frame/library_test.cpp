// The installed form of the library, with its real arena: memory and threads.

#include <cstdlib>
#include <new>
#include <thread>

#include "support/test.h"

namespace {

// Of this thread.
thread_local bool refuses_memory = false;
thread_local int allocations = 0;

void* Allocate(std::size_t size) {
  if (refuses_memory) return nullptr;
  ++allocations;
  return std::malloc(size);
}

}  // namespace

// Every form that the arena and the standard containers use. Not inlined: g++ would take a malloc
// or a free that it sees directly for one that does not match its delete or new.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (void* const memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocate(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

// Of the sanitizer's runtime; null without it.
extern "C" [[gnu::weak]] int __asan_address_is_poisoned(const volatile void*);

// Chunks of 1, 4, 16, 64, 256 KiB, and from then on of 1 MiB; and none once there is enough.
TEST(Library, TakesMemoryInGrowingChunks) {
  constexpr int kChunks = 8;
  constexpr int kInAllButTheLast = 2446336 / 50;  // a few less, for what is left at their ends
  int results = 0;
  allocations = 0;
  CQXDataFormat format;
  for (; allocations < kChunks; ++results) static_cast<void>(format.FormatMacAddress(0));
  EXPECT_NEAR(results, kInAllButTheLast, 8);
  format.Reset();
  for (; results > 0; --results) static_cast<void>(format.FormatMacAddress(0));
  EXPECT_EQ(allocations, kChunks);
}

// Texts that fill their blocks, in new chunks and then in kept ones; on two threads.
TEST(Library, ResultsStayIntactUntilReset) {
  const auto work = [] {
    CQXDataFormat format;
    for (const int results : {3000, 6000}) {
      format.Reset();
      std::vector<std::pair<ResultText, std::string>> kept;
      for (int i = 0; i < results; ++i) {
        const double number = 1e95 + 1e91 * i;
        kept.emplace_back(format.FormatNumberEx(number, 0, 1), WithCommas(Exact(number, 0)));
        kept.emplace_back(format.FormatPercentage(i), WithCommas(std::to_string(100 * i)) + "%");
      }
      for (const auto& [result, text] : kept) ASSERT_EQ(Utf8(result), text);
    }
  };
  std::thread other(work);
  work();
  other.join();
}

TEST(Library, WorksAgainAfterRefusedMemory) {
  CQXDataFormat format;
  const ResultText kept = format.FormatNumber(1, 0);
  refuses_memory = true;
  const ResultText without_first_chunk = CQXDataFormat().FormatNumber(1, 0);
  ResultText without_second_chunk = nullptr;
  for (int i = 0; i < 10; ++i) without_second_chunk = format.FormatDecimal(0.5);
  refuses_memory = false;
  EXPECT_EQ(Utf8(without_first_chunk), "[MEM_ERR]");
  EXPECT_EQ(Utf8(without_second_chunk), "[MEM_ERR]");
  EXPECT_EQ(Utf8(format.FormatDecimal(0.5)), "0.50");
  EXPECT_EQ(Utf8(kept), "1");
}

// In this chunk and in one that is taken later.
TEST(Library, AddressSanitizerSeesTextsUsedAfterReset) {
  if (__asan_address_is_poisoned == nullptr) GTEST_SKIP() << "without AddressSanitizer";
  CQXDataFormat format;
  std::vector<ResultText> texts;
  for (int i = 0; i < 100; ++i) texts.push_back(format.FormatMacAddress(0));
  for (const ResultText text : texts) EXPECT_EQ(Utf8(text), "00:00:00:00:00:00");
  format.Reset();
  for (const ResultText text : texts) EXPECT_NE(__asan_address_is_poisoned(text), 0);
  EXPECT_DEATH(static_cast<void>(Utf8(texts[0])), "use-after-poison");
  EXPECT_EQ(Utf8(format.FormatNumber(1, 0)), "1");
}

TEST(Library, ResetForgetsTheZone) {
  CQXDataFormat format;
  const std::pair<const char*, const char*> zones[] = {
      {"AAA-8", "06:13:20"}, {"AAA8", "14:13:20"}, {"AAA-8", "06:13:20"}};
  for (const auto& [zone, text] : zones) {
    setenv("TZ", zone, 1);
    tzset();
    format.Reset();
    for (int i = 0; i < 9; ++i) EXPECT_EQ(Utf8(format.FormatTime(1700000000)), text) << zone;
  }
}
