#pragma once

#include <string>
#include <vector>

namespace address {

struct Options {
  std::vector<std::string> addresses;  // none: those of the standard input
  bool help = false;
  bool version = false;
};

extern const char* const kUsage;

// Throws programs::UsageError.
Options ParseOptions(int argc, char** argv);

}  // namespace address
