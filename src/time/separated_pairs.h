#pragma once

// Two digits behind their separator, as dates and times of day are made of: "/07", ":59".

#include <array>
#include <cstdint>
#include <cstring>

#include "frame/digits.h"

namespace qxfmt {

namespace detail {

struct SeparatedPair {
  char16_t units[4];  // the last is a terminator, or the place of the next separator
};

template <char16_t kSeparator>
constexpr std::array<SeparatedPair, 100> MakeSeparatedPairs() {
  std::array<SeparatedPair, 100> pairs{};
  for (unsigned i = 0; i < 100; ++i) {
    const auto& digits = kDecimalPairs[i].units;
    pairs[i] = {{kSeparator, digits[0], digits[1], u'\0'}};
  }
  return pairs;
}

template <char16_t kSeparator>
inline constexpr std::array<SeparatedPair, 100> kSeparatedPairs = MakeSeparatedPairs<kSeparator>();

}  // namespace detail

// Writes separator, two digits of a value below 100 and a terminator in a single store, and returns
// the place of the terminator.
template <char16_t kSeparator>
inline char16_t* WriteSeparatedPair(char16_t* out, std::uint32_t value) {
  std::memcpy(out, &detail::kSeparatedPairs<kSeparator>[value], sizeof(detail::SeparatedPair));
  return out + 3;
}

}  // namespace qxfmt
