#pragma once

// What happened between two readings of the counters.

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "meter/counters.h"

namespace meter {

using Clock = std::chrono::steady_clock;

struct Load {
  std::string name;
  std::uint64_t received = 0;  // bytes since the reading before
  std::uint64_t sent = 0;
  std::uint64_t errors = 0;
  std::optional<Clock::duration> idle;  // since the last traffic; empty if there was none yet
};

struct Round {
  std::vector<Load> loads;
  std::uint64_t bytes = 0;  // of all loads
  double seconds = 0;       // between the two readings
};

// Keeps the reading before and when each interface last carried traffic.
class Rates {
 public:
  Rates(std::vector<Interface> interfaces, Clock::time_point time);

  // The round from the last reading to this one. An interface that is new shows from the next on.
  Round Advance(std::vector<Interface> interfaces, Clock::time_point time);

 private:
  std::map<std::string, Interface> before_;
  std::map<std::string, Clock::time_point> last_traffic_;
  Clock::time_point time_;
};

}  // namespace meter
