#include "meter/lines.h"

#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/csv.h"
#include "meter/rate_table.h"
#include "meter/rates.h"
#include "meter/stamp.h"
#include "meter/totals.h"
#include "shared/print.h"
#include "shared/terminal.h"

namespace meter {

namespace {

using programs::Print;

constexpr std::uint64_t kRounds = 5;

std::size_t Width() { return programs::LineWidth(STDOUT_FILENO); }

// Reads in the rhythm of the interval, and has each round printed.
template <typename PrintRound>
void Repeat(const Options& options, Rates& rates, PrintRound print) {
  const std::uint64_t rounds = options.rounds.value_or(kRounds);
  const auto interval =
      std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options.interval));
  for (std::uint64_t i = 0; rounds == 0 || i < rounds; ++i) {
    std::this_thread::sleep_for(interval);
    const auto interfaces = Select(ReadInterfaces(options.root), options.selection);
    Round round = rates.Advance(interfaces, Clock::now());
    Sort(round, options.order);
    print(round);
  }
}

std::vector<Interface> ReadFirst(const Options& options) {
  const std::vector<Interface> interfaces = ReadInterfaces(options.root);
  CheckPatterns(interfaces, options.selection);
  return Select(interfaces, options.selection);
}

}  // namespace

void PrintLines(const Options& options) {
  CQXDataFormat format;
  const std::vector<Interface> interfaces = ReadFirst(options);
  const Clock::time_point start = Clock::now();
  Rates rates(options.interval);
  rates.Advance(interfaces, start);

  // From the right to the left, but sizes and packets stay.
  static const programs::ColumnGroups kDispensable = {{10}, {6}, {9}, {5}, {2}, {1}};
  Print(Stamp(format, options, Clock::duration::zero()) + "\n");
  Print(TotalsTable(format, options, interfaces).ToString(Width(), kDispensable));
  Print("\n");
  Print(AddressTable(format, options, interfaces).ToString(Width(), {{2}}));
  if (options.once) return;

  RateTable table(true);
  Repeat(options, rates, [&](const Round& round) {
    Print("\n");
    Print(Stamp(format, options, round.time - start) + "\n");
    if (round.loads.empty()) Print(std::string(WhyNone(options.selection)) + "\n");
    Print(table.ToString(format, options, round, RowsOf(round), Width()));
    format.Reset();  // its texts are printed
  });
}

void PrintCsv(const Options& options) {
  CQXDataFormat format;
  const std::vector<Interface> interfaces = ReadFirst(options);
  if (options.once) return Print(TotalsCsv(format, interfaces));

  Rates rates(options.interval);
  rates.Advance(interfaces, Clock::now());
  bool is_first = true;
  Repeat(options, rates, [&](const Round& round) {
    Print(RoundCsv(format, options, round, is_first));
    is_first = false;
    format.Reset();  // its texts are printed
  });
}

}  // namespace meter
