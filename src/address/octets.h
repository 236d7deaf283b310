#pragma once

#include <cstdint>

namespace qxfmt {

// The octets as a value, the first in the lowest 8 bits, on every machine. A single load where that
// is the machine's own order.
template <int kCount>
inline std::uint64_t ReadOctets(const std::uint8_t* octets) {
  std::uint64_t value = 0;
  for (int i = 0; i < kCount; ++i) value |= std::uint64_t{octets[i]} << (8 * i);
  return value;
}

}  // namespace qxfmt
