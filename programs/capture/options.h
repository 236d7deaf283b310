#pragma once

#include <cstdint>
#include <string>

#include <qxfmt/formats.h>

namespace capture {

enum class ViewKind : std::uint8_t { kList, kConversations, kSummary };

enum class TimeStyle : std::uint8_t {
  kWhatFits,  // with the date, except on a narrow terminal
  kDate,
  kTimeOfDay,
  kSinceFirst,
};

enum class Sort : std::uint8_t {
  kStart,
  kSource,
  kDestination,
  kProtocol,
  kPackets,
  kBytes,
  kRate,
  kDuration,
};

struct Options {
  std::string file = "-";  // "-": the standard input
  std::string interface;   // captured live in place of a file, if not empty
  std::string filter;
  ViewKind view = ViewKind::kList;
  bool csv = false;
  std::uint64_t count = UINT64_MAX;  // packets to show
  TimeStyle time = TimeStyle::kWhatFits;
  QXFMT_DATE_FORMAT layout = QXFMT_DATE_YMD;
  QXFMT_TIME_ACCURACY accuracy = QXFMT_TIME_USECOND;
  QXFMT_DURATION_FORMAT durations = QXFMT_DURATION_CLOCK;
  QXFMT_BYTES_FORMAT unit = QXFMT_BYTES_AUTO;
  Sort sort = Sort::kBytes;
  bool help = false;
  bool version = false;
};

extern const char* const kUsage;

// Throws programs::UsageError.
Options ParseOptions(int argc, char** argv);

}  // namespace capture
