// The rows of a packet list, as a window or a terminal shows them: ten thousand a refresh.

#include <fmt/format.h>

#include <cstdint>
#include <memory>
#include <string>

#include "allocations.h"
#include "comparison.h"
#include "peers.h"

namespace qxfmt::bench {

namespace {

constexpr std::size_t kRowsPerRefresh = 10'000;

void PrintRow(CQXDataFormat& f, const Packet& p) {
  for (const ResultText cell :
       {f.FormatNumber(p.number, 0), f.FormatHiResDateTime(p.microseconds, QXFMT_DATE_YMD),
        f.FormatIpPort(p.source.address, p.source.port),
        f.FormatIpPort(p.destination.address, p.destination.port), f.FormatMacAddress(p.mac),
        f.FormatNumber(p.size, 0), f.FormatBitPerSecond(p.rate), f.FormatPercentage(p.share)}) {
    benchmark::DoNotOptimize(cell);
  }
}

void PrintRow(fmt::memory_buffer& buffer, const Packet& p) {
  auto out = fmt::appender(buffer);
  out = fmt::format_to(out, FMT_COMPILE("{} "), p.number);
  out = FmtStamp<kMicrosecond>(out, p.microseconds);
  for (const Ipv4Endpoint& v : {p.source, p.destination}) {
    *out++ = ' ';
    out = fmt::format_to(FmtIpv4(out, v.address), FMT_COMPILE(":{}"), v.port);
  }
  *out++ = ' ';
  out = fmt::format_to(FmtMac(out, p.mac), FMT_COMPILE(" {} "), p.size);
  out = FmtScaled(out, kScaleBitRate(p.rate));
  *out++ = ' ';
  FmtScaled(out, kScaleShare(p.share));
}

void Empty(CQXDataFormat& f) { f.Reset(); }
void Empty(fmt::memory_buffer& buffer) {
  benchmark::DoNotOptimize(buffer.data());
  buffer.clear();
}

template <typename Printer>
Work StartList() {
  SetZone(kNewYork);
  const auto printer = std::make_shared<Printer>();
  const auto refresh = [printer, packets = Packets()](std::size_t begin, std::size_t end) {
    CallEach(packets, begin, end,
             [printer = printer.get()](const Packet& p) { PrintRow(*printer, p); });
    Empty(*printer);
  };
  refresh(0, std::min(kRowsPerRefresh, ValueCount()));
  // From the second refresh on nothing is allocated.
  return [refresh](std::size_t begin, std::size_t end) {
    const std::size_t before = Allocations();
    for (; begin < end; begin += kRowsPerRefresh) {
      refresh(begin, std::min(begin + kRowsPerRefresh, end));
    }
    const std::size_t since = Allocations() - before;
    if (since != 0) ReportFailure("packet list: " + std::to_string(since) + " allocations");
  };
}

}  // namespace

void AddPacketListRows() {
  const std::string operation = "a packet list's row";
  AddRow({operation, kOurs, ValueCount(), StartList<CQXDataFormat>, 0, true});
  AddRow({operation, "fmt compiled, one buffer", ValueCount(), StartList<fmt::memory_buffer>, 4});
}

}  // namespace qxfmt::bench
