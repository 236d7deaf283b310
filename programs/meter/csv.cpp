#include "meter/csv.h"

#include "meter/stamp.h"
#include "shared/printable.h"
#include "shared/table.h"

namespace meter {

namespace {

void AddCounters(programs::Table& table, CQXDataFormat& format, const Direction& direction) {
  for (const std::uint64_t count :
       {direction.bytes, direction.packets, direction.errors, direction.drops}) {
    table.Add(format.FormatNumber(count, 0));
  }
}

}  // namespace

std::string TotalsCsv(CQXDataFormat& format, const std::vector<Interface>& interfaces) {
  programs::Table table({"interface", "direction", "bytes", "packets", "errors", "drops"});
  for (const Interface& interface : interfaces) {
    for (const bool is_sent : {false, true}) {
      table.Add(programs::Printable(interface.name));
      table.Add(is_sent ? u"out" : u"in");
      AddCounters(table, format, is_sent ? interface.sent : interface.received);
    }
  }
  return table.ToCsv();
}

std::string RoundCsv(CQXDataFormat& format, const Options& options, const Round& round,
                     bool with_headings) {
  programs::Table table({"time", "interface", "direction", "bytes", "packets", "errors", "drops",
                         "bytes/s", "packets/s"});
  const ResultText time = NowText(format, options);
  for (const Load& load : round.loads) {
    for (const bool is_sent : {false, true}) {
      const Flow& flow = is_sent ? load.sent : load.received;
      table.Add(time);
      table.Add(programs::Printable(load.interface.name));
      table.Add(is_sent ? u"out" : u"in");
      AddCounters(table, format, flow.gained);
      table.Add(format.FormatNumberEx(flow.rate, options.decimals, 0));
      table.Add(format.FormatNumberEx(flow.packet_rate, options.decimals, 0));
    }
  }
  return table.ToCsv(with_headings);
}

}  // namespace meter
