// The installed form of the library, with its real arena: memory and threads.

#include <cstdlib>
#include <new>
#include <thread>

#include "support/test.h"

namespace {

thread_local std::size_t allocations = 0;
thread_local std::size_t allocated = 0;

void* Count(std::size_t size) {
  ++allocations;
  allocated += size;
  return std::malloc(size);
}

}  // namespace

// Every form that the arena and the standard containers use. Not inlined: g++ would take a free
// that it sees directly for one that does not match its new.
void* operator new(std::size_t size) {
  if (void* const memory = Count(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return Count(size); }
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

using namespace qxfmt::test;

TEST(Library, OneAllocationForAResultAndNoneInTheSteadyState) {
  allocations = 0;
  CQXDataFormat format;
  EXPECT_EQ(allocations, 0U);
  format.FormatByte(1536, 2);
  EXPECT_EQ(allocations, 1U);
  for (int round = 0; round < 10; ++round) {
    if (round == 1) allocations = 0;
    for (std::uint64_t i = 0; i < 5000; ++i) format.FormatBytePerSecond(i * i * i);
    format.Reset();
  }
  EXPECT_EQ(allocations, 0U);
}

TEST(Library, AMillionResultsCostTheirBlocks) {
  constexpr std::size_t kResults = 1'000'000;
  CQXDataFormat format;
  allocated = 0;
  const ResultText first = format.FormatNumber(std::uint16_t{1}, 0);
  for (std::size_t i = 1; i < kResults; ++i) format.FormatNumber(static_cast<std::uint16_t>(i), 0);
  EXPECT_EQ(Utf8(first), "1");
  EXPECT_LT(allocated, kResults * 64 * 11 / 10);
}

TEST(Library, ResetForgetsTheZone) {
  CQXDataFormat format;
  for (const char* const zone : {"AAA-8", "AAA8", "AAA-8"}) {
    setenv("TZ", zone, 1);
    tzset();
    format.Reset();
    for (int i = 0; i < 9; ++i) {
      EXPECT_EQ(Utf8(format.FormatTime(1700000000)), zone[3] == '-' ? "06:13:20" : "14:13:20");
    }
  }
}

TEST(Library, TwoThreadsOnTwoFormatters) {
  const auto work = [] {
    CQXDataFormat format;
    for (std::uint64_t i = 1; i <= 20000; ++i) {
      QXFMT_SetByteFormat(QXFMT_BYTES_AUTO);
      const std::uint64_t kilobytes = i % 1000 + 1;
      EXPECT_EQ(Utf8(format.FormatByte(1024 * kilobytes, 1)), std::to_string(kilobytes) + ".0 KB");
      if (i % 500 == 0) format.Reset();
    }
  };
  std::thread other(work);
  work();
  other.join();
}
