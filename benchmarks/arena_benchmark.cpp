// What a result costs before its digits do, and whether it costs the same after many others.

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string>

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
    AddRow({results + "with Reset", kOurs, count, [] { return PrintWithReset; }});
  }
}

}  // namespace qxfmt::bench
