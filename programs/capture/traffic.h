#pragma once

// Counts of packets and bytes, and what follows from them.

#include <cstdint>

#include "capture/source.h"

namespace capture {

struct Traffic {
  std::uint64_t packets = 0;
  std::uint64_t bytes = 0;  // as they were sent, not as far as they were captured

  void Add(std::uint32_t length) {
    ++packets;
    bytes += length;
  }

  Traffic operator+(const Traffic& other) const {
    return {packets + other.packets, bytes + other.bytes};
  }
};

// The time from the first packet to the last. Captures need not be in order.
struct Span {
  std::int64_t first = kOutOfRange;  // nanoseconds since 1970-01-01 00:00:00 UTC
  std::int64_t last = kOutOfRange;

  void Add(std::int64_t time) {
    if (time == kOutOfRange) return;
    if (first == kOutOfRange || time < first) first = time;
    if (time > last) last = time;
  }

  std::int64_t nanoseconds() const { return last > first ? last - first : 0; }

  // So many a second; 0 where there is no time between first and last.
  double Rate(std::uint64_t count) const {
    return last > first ? static_cast<double>(count) / (static_cast<double>(nanoseconds()) * 1e-9)
                        : 0;
  }
};

inline float Share(std::uint64_t part, std::uint64_t whole) {
  return whole == 0 ? 0
                    : static_cast<float>(static_cast<double>(part) / static_cast<double>(whole));
}

}  // namespace capture
