// Runs every benchmark several times, interleaved, and prints the ratio of the medians: how many
// times as long as ours the peer takes. Ratios of one run hold on a noisy machine; times do not.

#include "comparison.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace qxfmt::bench {

namespace {

struct Row {
  std::string implementation;
  std::vector<double> times;

  double median() const {
    std::vector<double> sorted = times;
    std::sort(sorted.begin(), sorted.end());
    return sorted.empty() ? 0.0 : sorted[sorted.size() / 2];
  }
};

class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      if (run.error_occurred) {
        std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        failed_ = true;
        continue;
      }
      Add(run.run_name.function_name, run.GetAdjustedCPUTime());
    }
  }

  void Finalize() override {
    std::printf("%-46s %-26s %10s %8s\n", "operation", "implementation", "ns", "ratio");
    std::sort(order_.begin(), order_.end());
    for (const std::string& operation : order_) {
      // Interleaved runs report in any order; ours comes first.
      std::vector<Row>& rows = operations_[operation];
      std::stable_partition(rows.begin(), rows.end(),
                            [](const Row& row) { return row.implementation == "qxfmt"; });
      const double ours = rows.front().median();
      for (const Row& row : rows) {
        std::printf("%-46s %-26s %10.1f %8.2f\n", operation.c_str(), row.implementation.c_str(),
                    row.median() / static_cast<double>(kValues), row.median() / ours);
      }
    }
  }

  bool failed() const { return failed_; }

 private:
  void Add(const std::string& name, double time) {
    const std::size_t bar = name.find('|');
    const std::string operation = name.substr(0, bar);
    const std::string implementation = name.substr(bar + 1);
    if (operations_.count(operation) == 0) order_.push_back(operation);
    std::vector<Row>& rows = operations_[operation];
    auto row = std::find_if(rows.begin(), rows.end(),
                            [&](const Row& r) { return r.implementation == implementation; });
    if (row == rows.end()) row = rows.insert(rows.end(), Row{implementation, {}});
    row->times.push_back(time);
  }

  std::map<std::string, std::vector<Row>> operations_;
  std::vector<std::string> order_;
  bool failed_ = false;
};

}  // namespace

void Register(const std::string& operation, const std::string& implementation,
              std::function<void(benchmark::State&)> body) {
  benchmark::RegisterBenchmark((operation + "|" + implementation).c_str(), std::move(body));
}

void RegisterAddresses();
void RegisterNumbers();
void RegisterTime();

}  // namespace qxfmt::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  qxfmt::bench::RegisterAddresses();
  qxfmt::bench::RegisterNumbers();
  qxfmt::bench::RegisterTime();
  qxfmt::bench::RatioReporter reporter;
  if (benchmark::RunSpecifiedBenchmarks(&reporter) == 0) {
    std::fprintf(stderr, "no benchmark has that name\n");
    return 1;
  }
  return reporter.failed() ? 1 : 0;
}
