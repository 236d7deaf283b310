#include "meter/live.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <qxfmt/qxfmt.h>

#include "meter/bar.h"
#include "meter/rate_table.h"
#include "meter/rates.h"
#include "meter/screen.h"
#include "meter/stamp.h"
#include "shared/table.h"
#include "shared/terminal.h"

namespace meter {

namespace {

constexpr std::size_t kGap = 2;  // blanks before the bars
constexpr std::size_t kShortestBar = 12;
constexpr std::size_t kLongestBar = 60;
constexpr std::size_t kOtherLines = 5;  // the stamp, the headings, the keys and two blank ones

// The texts of the settings that keys change.
constexpr const char* kUnitNames[] = {"auto", "B", "KB", "MB", "GB", "TB"};

constexpr const char* kPlain = "";
constexpr const char* kBold = "\033[1m";
constexpr const char* kDim = "\033[2m";
constexpr const char* kRed = "\033[31m";
constexpr const char* kGreen = "\033[32m";
constexpr const char* kCyan = "\033[36m";

std::size_t Less(std::size_t size, std::size_t other) { return size > other ? size - other : 0; }

// The next one of so many choices, and after the last one the first.
template <typename Choice>
Choice Next(Choice choice, std::size_t count) {
  return static_cast<Choice>((static_cast<std::size_t>(choice) + 1) % count);
}

// Takes out what does not fit into so many lines, the total last. Returns the count of interfaces.
std::size_t Shorten(std::vector<Row>& rows, std::size_t lines) {
  std::size_t hidden = 0;
  for (std::size_t i = rows.size(); rows.size() > lines && i >= 2;) {
    i -= 2;
    if (rows[i].is_total && i > 0) continue;
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(i),
               rows.begin() + static_cast<std::ptrdiff_t>(i + 2));
    ++hidden;
  }
  return hidden;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n')) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return lines;
}

class Live {
 public:
  explicit Live(const Options& options);

  int Run();

 private:
  void Read();
  bool Press(char key);  // false: the user has seen enough
  std::string Frame();
  std::string RowLine(const Row& row, std::string_view cells, std::size_t bar) const;
  std::string KeyLine(std::size_t hidden) const;
  std::string Coloured(const char* colour, std::string_view text) const;  // cut to the width

  Options options_;
  CQXDataFormat format_;
  Rates rates_;
  RateTable table_{false};
  Round round_;
  Clock::time_point start_ = Clock::now();
  std::size_t width_ = 0;  // of the terminal
  bool has_colours_ = programs::TakesColours(STDOUT_FILENO);
  bool is_utf8_ = programs::IsUtf8Locale();
};

Live::Live(const Options& options) : options_(options), rates_(options.interval) {
  CheckPatterns(ReadInterfaces(options.root), options.selection);
  Read();
}

int Live::Run() {
  const auto interval =
      std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options_.interval));
  const std::uint64_t rounds = options_.rounds.value_or(0);
  Clock::time_point next = start_ + interval;
  Screen screen;
  for (std::uint64_t round = 0; rounds == 0 || round < rounds;) {
    screen.Show(Frame());
    const Event event = screen.Wait(next);
    if (event.kind == Event::Kind::kSignal) return event.signal == SIGINT ? 0 : event.signal;
    if (event.kind == Event::Kind::kKey && !Press(event.key)) return 0;
    if (Clock::now() < next) continue;
    Read();
    ++round;
    next += interval;
    if (next < Clock::now()) next = Clock::now() + interval;  // after a pause
  }
  return 0;
}

void Live::Read() {
  const auto interfaces = Select(ReadInterfaces(options_.root), options_.selection);
  round_ = rates_.Advance(interfaces, Clock::now());
}

bool Live::Press(char key) {
  if (key == 'q') return false;
  if (key == 's') options_.order = Next(options_.order, std::size(kOrderNames));
  if (key == 'u') options_.unit = Next(options_.unit, std::size(kUnitNames));
  if (key == 'b') options_.bits = !options_.bits;
  table_ = RateTable(false);  // other texts have other widths
  return true;
}

std::string Live::Frame() {
  width_ = programs::LineWidth(STDOUT_FILENO);
  const std::size_t height = programs::LineCount(STDOUT_FILENO);
  Sort(round_, options_.order);
  std::vector<Row> rows = RowsOf(round_);
  const std::size_t hidden = Shorten(rows, height > kOtherLines ? height - kOtherLines : 0);
  const std::string table =
      table_.ToString(format_, options_, round_, rows, Less(width_, kGap + kShortestBar));
  const std::vector<std::string_view> lines = SplitLines(table);
  const std::size_t bar = std::min(Less(width_, programs::Width(lines[0]) + kGap), kLongestBar);

  std::string frame = Coloured(kBold, Stamp(format_, options_, round_.time - start_)) + "\n\n";
  frame += Coloured(kBold, std::string(lines[0]) + "  last minute") + "\n";
  for (std::size_t i = 0; i < rows.size(); ++i) frame += RowLine(rows[i], lines[i + 1], bar);
  format_.Reset();  // its texts are in the frame
  return frame + "\n" + KeyLine(hidden);
}

std::string Live::RowLine(const Row& row, std::string_view cells, std::size_t bar) const {
  const bool has_losses = row.flow->gained.errors + row.flow->gained.drops > 0;
  std::string line = Coloured(has_losses ? kRed : row.is_total ? kBold : kPlain, cells);
  if (bar > 0) {
    line.append(kGap, ' ');
    line += Coloured(row.is_sent ? kCyan : kGreen, Bar(*row.flow, round_.minute, bar, is_utf8_));
  }
  return line + "\n";
}

std::string Live::KeyLine(std::size_t hidden) const {
  std::string line = "q quit  s order: ";
  line += kOrderNames[static_cast<std::size_t>(options_.order)];
  line += options_.bits ? "  b bytes  u unit: " : "  b bits  u unit: ";
  line += kUnitNames[options_.unit];
  if (round_.loads.empty()) line += std::string("  ") + WhyNone(options_.selection);
  if (hidden > 0) line += "  no room for " + std::to_string(hidden) + " more";
  return Coloured(kDim, line);
}

std::string Live::Coloured(const char* colour, std::string_view text) const {
  text = programs::Cut(text, width_);
  if (!has_colours_ || *colour == '\0') return std::string(text);
  return std::string(colour).append(text).append("\033[0m");
}

}  // namespace

int RunLive(const Options& options) { return Live(options).Run(); }

}  // namespace meter
