#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include <qxfmt/formats.h>

namespace meter {

struct Options {
  double interval = 1.0;     // seconds between two readings
  std::uint64_t rounds = 5;  // 0: until interrupted
  bool once = false;         // totals alone
  std::int32_t decimals = 2;
  QXFMT_BYTES_FORMAT unit = QXFMT_BYTES_AUTO;
  bool sockets = false;  // the open sockets alone
  QXFMT_DATE_FORMAT layout = QXFMT_DATE_YMD;
  QXFMT_TIME_ACCURACY accuracy = QXFMT_TIME_MSECOND;
  QXFMT_DURATION_FORMAT words = QXFMT_DURATION_WORDS_EN;
  std::string root;  // stands before /proc and /sys; empty for this host
  bool help = false;
};

// What is wrong with the command line, in words for its user.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

extern const char* const kUsage;

// Throws UsageError.
Options ParseOptions(int argc, const char* const* argv);

}  // namespace meter
