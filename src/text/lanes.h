#pragma once

// Up to four 16-bit units in one 64-bit word, so that a single store writes them.

#include <bit>
#include <cstdint>
#include <cstring>

namespace qxfmt {

// The first unit lies in the lowest 16 bits, on every machine.
using Lanes = std::uint64_t;

constexpr Lanes MakeLanes(Lanes first, Lanes second, Lanes third, Lanes fourth) {
  return first | second << 16 | third << 32 | fourth << 48;
}

constexpr char16_t LaneOf(Lanes lanes, int index) {
  return static_cast<char16_t>(lanes >> (16 * index));
}

// Writes all four units.
inline void StoreLanes(char16_t* out, Lanes lanes) {
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(out, &lanes, sizeof(lanes));
  } else {
    for (int i = 0; i < 4; ++i) out[i] = LaneOf(lanes, i);
  }
}

// Reads four units, all of which must exist.
inline Lanes LoadLanes(const char16_t* units) {
  if constexpr (std::endian::native == std::endian::little) {
    Lanes lanes;
    std::memcpy(&lanes, units, sizeof(lanes));
    return lanes;
  } else {
    return MakeLanes(units[0], units[1], units[2], units[3]);
  }
}

// Writes the first two.
inline void StoreHalf(char16_t* out, Lanes lanes) {
  out[0] = LaneOf(lanes, 0);
  out[1] = LaneOf(lanes, 1);
}

}  // namespace qxfmt
