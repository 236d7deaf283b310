#pragma once

#include <cstdint>

#include "text/digits.h"

namespace qxfmt {

// Dotted decimal text of four octets, the first in the lowest 8 bits.
class Dotted {
 public:
  static constexpr std::int32_t kMaxSize = 15;  // 255.255.255.255
  static constexpr std::int32_t kSlack = 1;

  explicit Dotted(std::uint32_t address) : address_(address) {}

  char16_t* Write(char16_t* out) const {
    for (int shift = 0; shift < 24; shift += 8) {
      out = WriteSmall(out, address_ >> shift & 0xFF);
      *out++ = u'.';
    }
    return WriteSmall(out, address_ >> 24);
  }

 private:
  std::uint32_t address_;
};

}  // namespace qxfmt
