#pragma once

// What the kernel counts for each network interface.

#include <cstdint>
#include <string>
#include <vector>

namespace meter {

struct Direction {
  std::uint64_t bytes = 0;
  std::uint64_t packets = 0;
  std::uint64_t errors = 0;
  std::uint64_t drops = 0;
};

struct Interface {
  std::string name;
  Direction received;
  Direction sent;
  std::string state;           // "up", "down", "unknown" ...; empty where the kernel tells none
  std::uint64_t megabits = 0;  // link speed in Mbit/s; 0 where the kernel tells none
  bool is_loopback = false;
};

// Whether it can carry traffic, as far as the kernel tells.
bool IsUp(const Interface& interface);

// Reads ROOT/proc/net/dev and the entries under ROOT/sys/class/net. Throws std::runtime_error if
// the counters cannot be read or do not look as they should.
std::vector<Interface> ReadInterfaces(const std::string& root);

}  // namespace meter
