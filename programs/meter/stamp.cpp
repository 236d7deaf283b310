#include "meter/stamp.h"

#include <langinfo.h>

#include <chrono>
#include <cstdint>
#include <sstream>

#include <qxfmt/utf8.h>

#include "meter/files.h"

namespace meter {

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

// The time that the host is up; 0 where it does not tell.
std::uint32_t ReadUptime(const std::string& root) {
  std::istringstream text(ReadFirstLine(root + "/proc/uptime"));
  double uptime = 0;  // seconds
  text >> uptime;
  return uptime > 0 && uptime < 0x1p32 ? static_cast<std::uint32_t>(uptime) : 0;
}

}  // namespace

ResultText NowText(CQXDataFormat& format, const Options& options) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return format.FormatAllDateTime(duration_cast<nanoseconds>(now).count(), options.accuracy,
                                  options.layout);
}

std::string Stamp(CQXDataFormat& format, const Options& options, Clock::duration running) {
  std::u16string text = NowText(format, options);
  text += u", running ";
  text += format.FormatDurationMSecond(duration_cast<milliseconds>(running).count(),
                                       QXFMT_DURATION_CLOCK);
  text += u", host up ";
  const std::uint32_t uptime = ReadUptime(options.root);
  text += uptime == 0 ? u"-" : format.FormatDurationSecond(uptime, options.words);
  return qxfmt::Utf8(text);
}

}  // namespace meter
