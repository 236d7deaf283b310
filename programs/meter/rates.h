#pragma once

// What happened between two readings of the counters, and since the first one.

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "meter/counters.h"

namespace meter {

using Clock = std::chrono::steady_clock;

// One direction of an interface.
struct Flow {
  Direction gained;            // since the reading before
  double rate = 0;             // bytes a second, likewise
  double packet_rate = 0;      // packets a second, likewise
  double peak = 0;             // the highest rate yet
  double average = 0;          // the rate since the first reading
  double share = 0;            // of what all interfaces but the loopback carried this way
  std::uint64_t bytes = 0;     // since the first reading
  std::uint64_t readings = 0;  // yet, without the first
  std::vector<double> minute;  // the rates of the last minute, the latest one last
  std::optional<Clock::time_point> traffic;  // the last reading with any
};

struct Load {
  Interface interface;
  Flow received;
  Flow sent;
  Clock::time_point since;  // the first reading
};

struct Round {
  Clock::time_point time;
  std::size_t minute = 0;  // readings in a minute
  std::vector<Load> loads;
  std::optional<Load> total;  // of all but the loopback; empty if there are none
};

// Follows each interface from the first reading that has it to the last one without a gap.
class Rates {
 public:
  // `interval` is the time between two readings, in seconds.
  explicit Rates(double interval);

  // The round from the last reading to this one. An interface that is new starts with 0.
  Round Advance(const std::vector<Interface>& interfaces, Clock::time_point time);

 private:
  void Advance(Load& load, const Direction& received, const Direction& sent,
               Clock::time_point time) const;
  void Advance(Flow& flow, const Direction& gained, Clock::time_point since,
               Clock::time_point time) const;
  void AddTotal(Round& round);

  std::size_t minute_;  // readings in a minute
  std::map<std::string, Load> loads_;
  std::optional<Load> total_;
  Clock::time_point time_;  // of the last reading
};

}  // namespace meter
