// What a result costs before its digits do, and whether it costs the same after many others.

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "comparison.h"

namespace qxfmt::bench {

namespace {

void Print(CQXDataFormat& format, std::size_t begin, std::size_t end) {
  const Values<std::uint32_t> addresses = CaptureIpv4();
  for (std::size_t i = begin; i < end; ++i) {
    benchmark::DoNotOptimize(format.FormatIpAddress(addresses[i % addresses.size()]));
  }
}

// With the formatter's construction and its end, which gives the memory back.
void PrintWithoutReset(std::size_t begin, std::size_t end) {
  CQXDataFormat format;
  Print(format, begin, end);
}

void PrintWithReset(std::size_t begin, std::size_t end) {
  constexpr std::size_t kThousand = 1000;
  CQXDataFormat format;
  for (; begin < end; begin += kThousand) {
    Print(format, begin, std::min(begin + kThousand, end));
    format.Reset();
  }
}

// As much fresh memory as the blocks of these results, of which each page is touched once: what the
// system takes for it, whoever asks.
void TouchFreshMemory(std::size_t begin, std::size_t end) {
  constexpr std::size_t kBlock = 40;
  constexpr std::size_t kPage = 4096;
  constexpr std::size_t kChunk = 1 << 20;
  std::vector<std::unique_ptr<char[]>> chunks;
  for (std::size_t left = (end - begin) * kBlock; left > 0; left -= std::min(left, kChunk)) {
    char* const chunk = chunks.emplace_back(new char[kChunk]).get();
    for (std::size_t i = 0; i < std::min(left, kChunk); i += kPage) chunk[i] = 1;
    benchmark::DoNotOptimize(chunk);
  }
}

}  // namespace

void AddArenaRows() {
  Compare("the floor: FormatNumber u16 of one digit", PacketSizes(),
          [](CQXDataFormat& f, std::uint32_t v) {
            return f.FormatNumber(static_cast<std::uint16_t>(v % 10), 0);
          });
  Compare(
      "one result of a new formatter", ByteCounters(),
      [](std::uint64_t v) {
        CQXDataFormat format;
        return *format.FormatNumber(v, 0);
      },
      Peer{"fmt::to_string", [](std::uint64_t v) { return fmt::to_string(v); }});
  for (std::size_t count = 1000; count <= 10'000'000 && count <= 64 * ValueCount(); count *= 10) {
    const std::string results = std::to_string(count) + " results ";
    AddRow({results + "without Reset", kOurs, count, [] { return PrintWithoutReset; }});
    AddRow({results + "without Reset", "their memory, touched", count,
            [] { return TouchFreshMemory; }});
    AddRow({results + "with Reset", kOurs, count, [] { return PrintWithReset; }});
  }
}

}  // namespace qxfmt::bench
