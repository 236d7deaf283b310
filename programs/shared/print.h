#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

namespace programs {

// To the standard output, where it is seen at once.
inline void Print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    throw std::runtime_error("cannot write to the standard output");
  }
}

}  // namespace programs
