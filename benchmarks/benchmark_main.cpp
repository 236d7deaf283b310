// Runs all rows several times, interleaved, and prints the ratio of the medians: how many times as
// long as ours a peer takes. Ratios of one run hold on a noisy machine; times do not.
//
// Beside the options of Google Benchmark:
//   --values=N     values of a set (262144)
//   --table=FILE   writes the rows as fields with tabs between them: operation, implementation,
//                  nanoseconds, ratio, goal, two threads; before them the versions in two fields

#include <absl/base/config.h>
#include <fmt/core.h>
#include <gnu/libc-version.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <boost/version.hpp>

#include "comparison.h"
#include "two_threads.h"

namespace qxfmt::bench {

namespace {

constexpr double kThreadGoal = 1.9;  // of results a second of two threads, in those of one

double Median(std::vector<double> times) {
  if (times.empty()) return 0;
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

// --- The run

constexpr char kThreadRatio[] = "two threads";

std::string Name(const Row& row) { return row.operation + "|" + row.implementation; }
std::string TwoThreadName(const Row& row) { return Name(row) + "|two threads"; }

void RegisterRows() {
  for (const Row& row : AllRows()) {
    benchmark::RegisterBenchmark(Name(row).c_str(), [&row](benchmark::State& state) {
      const Work work = row.start();
      for ([[maybe_unused]] auto _ : state) work(0, row.results);
    });
    if (!row.on_two_threads) continue;
    benchmark::RegisterBenchmark(TwoThreadName(row).c_str(), [&row](benchmark::State& state) {
      double ratio = 0;
      for ([[maybe_unused]] auto _ : state) ratio = TwoThreadRatio(row);
      state.counters[kThreadRatio] = ratio;
    });
  }
}

// What each repetition measured.
struct Samples {
  std::vector<double> seconds;  // for all values of the row
  std::vector<double> thread_ratios;
};

class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      Samples& samples = samples_[run.run_name.function_name];
      const auto ratio = run.counters.find(kThreadRatio);
      if (ratio != run.counters.end()) {
        samples.thread_ratios.push_back(ratio->second);
      } else {
        samples.seconds.push_back(run.cpu_accumulated_time / static_cast<double>(run.iterations));
      }
    }
  }

  // Without samples if the row has not run.
  const Samples& Of(const std::string& name) { return samples_[name]; }

 private:
  std::map<std::string, Samples> samples_;
};

// --- The table

struct Line {
  std::string operation;
  std::string implementation;
  double nanoseconds;
  double ratio;    // to ours; 0 if ours has not run
  double goal;     // of the ratio, or of ours on two threads; 0: none
  double threads;  // results a second of two threads, in those of one; 0 for a peer
};

std::vector<Line> Lines(Collector& collector) {
  std::vector<Line> lines;
  double ours = 0;
  for (const Row& row : AllRows()) {
    const double seconds = Median(collector.Of(Name(row)).seconds);
    if (row.implementation == kOurs) ours = seconds;
    if (seconds == 0) continue;
    lines.push_back({row.operation, row.implementation,
                     seconds / static_cast<double>(row.results) * 1e9,
                     ours == 0 ? 0 : seconds / ours, row.on_two_threads ? kThreadGoal : row.goal,
                     Median(collector.Of(TwoThreadName(row)).thread_ratios)});
  }
  return lines;
}

const char* Verdict(double value, double goal) { return value < goal ? "missed" : "reached"; }

void Print(const std::vector<Line>& lines) {
  std::printf("%-56s %8s %7s %7s\n", "", "ns", "ratio", "goal");
  for (const Line& line : lines) {
    if (line.implementation == kOurs) {
      std::printf("%-56s %8.1f", line.operation.c_str(), line.nanoseconds);
      if (line.threads != 0) {
        std::printf("   two threads %.2f %s", line.threads, Verdict(line.threads, line.goal));
      }
    } else {
      std::printf("    %-52s %8.1f %7.2f", line.implementation.c_str(), line.nanoseconds,
                  line.ratio);
      if (line.goal != 0) {
        std::printf(" %7.2f %s", line.goal, Verdict(line.ratio, line.goal));
      }
    }
    std::printf("\n");
  }
}

void Write(const std::vector<Line>& lines, const std::string& path) {
#if defined(__clang__)
  const char* const compiler = __VERSION__;
#else
  const char* const compiler = "g++ " __VERSION__;
#endif
  std::ofstream file(path);
  file << "compiler\t" << compiler << "\nC library\tglibc " << gnu_get_libc_version() << "\nfmt\t"
       << FMT_VERSION / 10000 << '.' << FMT_VERSION / 100 % 100 << '.' << FMT_VERSION % 100
       << "\nAbseil\t" << ABSL_LTS_RELEASE_VERSION << "\nBoost\t" << BOOST_VERSION / 100000 << '.'
       << BOOST_VERSION / 100 % 1000 << '\n';
  for (const Line& line : lines) {
    file << line.operation << '\t' << line.implementation << '\t' << line.nanoseconds << '\t'
         << line.ratio << '\t' << line.goal << '\t' << line.threads << '\n';
  }
  if (!file.flush()) ReportFailure("cannot write " + path);
}

// Takes "--name=value" out of the arguments; empty if it is not there.
std::string TakeOption(const std::string& name, int& argc, char** argv) {
  const std::string start = name + "=";
  char** const end = argv + argc;
  char** const found = std::find_if(
      argv, end, [&](const std::string& argument) { return argument.rfind(start, 0) == 0; });
  if (found == end) return {};
  const std::string value = std::string(*found).substr(start.size());
  std::move(found + 1, end, found);
  --argc;
  return value;
}

int Main(int argc, char** argv) {
  const std::string values = TakeOption("--values", argc, argv);
  const std::string table = TakeOption("--table", argc, argv);
  if (!values.empty()) SetValueCount(std::stoul(values));
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  RegisterRows();
  Collector collector;
  if (benchmark::RunSpecifiedBenchmarks(&collector) == 0) ReportFailure("no row has that name");
  const std::vector<Line> lines = Lines(collector);
  Print(lines);
  if (!table.empty()) Write(lines, table);
  return HasFailures() ? 1 : 0;
}

}  // namespace

}  // namespace qxfmt::bench

int main(int argc, char** argv) { return qxfmt::bench::Main(argc, argv); }
