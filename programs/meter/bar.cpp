#include "meter/bar.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace meter {

namespace {

constexpr const char* kBlocks[] = {" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr const char* kSigns[] = {" ", ".", ":", "-", "=", "+", "*", "#", "@"};
constexpr double kSteps = 8;

// The highest rates of so many readings each. Readings are grouped by their number, not by their
// place in the minute, so that a group moves on as it is.
std::vector<double> Highest(const Flow& flow, std::size_t group) {
  std::vector<double> highest;
  const std::uint64_t first = flow.readings - flow.minute.size();
  std::uint64_t last_number = UINT64_MAX;
  for (std::size_t i = 0; i < flow.minute.size(); ++i) {
    const std::uint64_t number = (first + i) / group;
    if (number != last_number) highest.push_back(0);
    highest.back() = std::max(highest.back(), flow.minute[i]);
    last_number = number;
  }
  return highest;
}

}  // namespace

std::string Bar(const Flow& flow, std::size_t readings, std::size_t width, bool is_unicode) {
  const std::size_t group = (readings + width - 1) / width;
  const std::size_t bars = (readings + group - 1) / group;
  const std::size_t stretch = width / bars;
  std::vector<double> highest = Highest(flow, group);
  highest.insert(highest.begin(), bars, 0);  // before the first reading
  highest.erase(highest.begin(), highest.end() - static_cast<std::ptrdiff_t>(bars));

  const double peak = *std::max_element(highest.begin(), highest.end());
  std::string text;
  for (const double rate : highest) {
    const double step = rate > 0 ? std::ceil(kSteps * rate / peak) : 0;
    const auto index = static_cast<std::size_t>(step);
    for (std::size_t i = 0; i < stretch; ++i) text += is_unicode ? kBlocks[index] : kSigns[index];
  }
  return text;
}

}  // namespace meter
