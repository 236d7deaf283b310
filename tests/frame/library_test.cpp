// The installed form of the library, with its real arena: memory and threads.

#include <cstdlib>
#include <new>
#include <thread>

#include "support/test.h"

namespace {

// Of this thread.
thread_local bool refuses_memory = false;
thread_local std::size_t allocations = 0;
thread_local std::size_t sizes[10];  // of the last ones

// Not inlined, as the deletes below: g++ would warn of malloc and free that it sees through these.
[[gnu::noinline]] void* Allocate(std::size_t size) {
  if (refuses_memory) return nullptr;
  sizes[allocations++ % std::size(sizes)] = size;
  return std::malloc(size);
}

}  // namespace

// Every form that the arena and the standard containers use.
void* operator new(std::size_t size) {
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

// And none once there is enough.
TEST(Library, TakesMemoryInGrowingChunks) {
  const std::vector<std::size_t> chunks = {1024, 4096, 16384, 65536, 262144, 1 << 20, 1 << 20};
  allocations = 0;
  CQXDataFormat format;
  std::size_t results = 0;
  for (; allocations < chunks.size(); ++results) format.FormatMacAddress(0);
  EXPECT_TRUE(std::equal(chunks.begin(), chunks.end(), sizes));
  std::size_t room = 1;  // the last block; the other chunks hold what they can
  for (std::size_t i = 0; i + 1 < chunks.size(); ++i) room += (chunks[i] - 2 * sizeof(void*)) / 50;
  EXPECT_EQ(results, room);
  format.Reset();
  for (; results > 0; --results) format.FormatMacAddress(0);
  EXPECT_EQ(allocations, chunks.size());
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
