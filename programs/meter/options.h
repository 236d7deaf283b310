#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <qxfmt/formats.h>

#include "meter/order.h"
#include "meter/selection.h"

namespace meter {

struct Options {
  Selection selection;
  double interval = 1.0;                // seconds between two readings
  std::optional<std::uint64_t> rounds;  // 0: until interrupted
  bool once = false;                    // the totals and addresses alone
  bool sockets = false;                 // the open sockets alone
  bool lines = false;                   // on a terminal, too
  bool csv = false;
  Order order = Order::kKernel;
  bool bits = false;  // rates in bits, not in bytes
  QXFMT_BYTES_FORMAT unit = QXFMT_BYTES_AUTO;
  std::int32_t decimals = 2;
  QXFMT_DATE_FORMAT layout = QXFMT_DATE_YMD;
  QXFMT_TIME_ACCURACY accuracy = QXFMT_TIME_MSECOND;
  QXFMT_DURATION_FORMAT words = QXFMT_DURATION_WORDS_EN;
  std::string root;  // stands before /proc and /sys; empty for this host
  bool help = false;
  bool version = false;
};

extern const char* const kUsage;

// Throws programs::UsageError.
Options ParseOptions(int argc, char** argv);

}  // namespace meter
