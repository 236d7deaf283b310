#pragma once

#include <bit>
#include <cstdint>

#include "frame/digits.h"

namespace qxfmt {

// Prints a port and returns the end; writes no terminator. Touches five units. The last four digits
// are put into one number, the first in the lowest 16 bits, and the zeros before the first other
// digit shifted out: no branch on the length, which is as good as random.
inline char16_t* WritePort(char16_t* out, std::uint16_t port) {
  const std::uint32_t first = port / 10000U;
  const std::uint32_t last_four = port % 10000U;
  *out = static_cast<char16_t>(u'0' + first);
  out += first != 0 ? 1 : 0;
  const auto& high = kDecimalPairs[last_four / 100].units;
  const auto& low = kDecimalPairs[last_four % 100].units;
  std::uint64_t digits = std::uint64_t{high[0]} | std::uint64_t{high[1]} << 16 |
                         std::uint64_t{low[0]} << 32 | std::uint64_t{low[1]} << 48;
  constexpr std::uint64_t kZeros = 0x0030003000300030;
  // The last digit always shows, and all do behind a fifth one.
  const std::uint64_t shown = (digits ^ kZeros) | std::uint64_t{1} << 48 | first;
  const int zeros = std::countr_zero(shown) / 16;
  digits >>= 16 * zeros;
  out[0] = static_cast<char16_t>(digits);
  out[1] = static_cast<char16_t>(digits >> 16);
  out[2] = static_cast<char16_t>(digits >> 32);
  out[3] = static_cast<char16_t>(digits >> 48);
  return out + (4 - zeros);
}

}  // namespace qxfmt
